// Reserved for what a user adds to view 3 by hand; the wiring is view3_ui.cpp.
