// Reserved for what a user adds to view 2 by hand; the wiring is view2_ui.cpp.
