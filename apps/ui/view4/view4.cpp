// Reserved for user code of view 4; the wiring is in view4_ui.cpp.
