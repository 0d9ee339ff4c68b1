// Reserved for what a user adds to view 4 by hand; the wiring is view4_ui.cpp.
