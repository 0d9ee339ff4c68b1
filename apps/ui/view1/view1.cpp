// Reserved for what a user adds to view 1 by hand; the wiring is view1_ui.cpp.
