// Reserved for user code of view 2; the wiring is in view2_ui.cpp.
