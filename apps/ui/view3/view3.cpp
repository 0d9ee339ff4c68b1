// Reserved for user code of view 3; the wiring is in view3_ui.cpp.
