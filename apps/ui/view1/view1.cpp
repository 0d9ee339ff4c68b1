// Reserved for user code of view 1; the wiring is in view1_ui.cpp.
