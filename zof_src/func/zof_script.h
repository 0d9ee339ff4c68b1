// A scripted session: what a user would do, from a file. For runs without a display, pictures, and tests.
#ifndef ZOF_SCRIPT_H
#define ZOF_SCRIPT_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Plays the file that the environment variable ZOF_SCRIPT names, if it is set. Graphics thread, once, after the first
// view is shown. One command a line, "#" begins a comment:
//   wait MS               tap X Y             press X Y      move X Y       release
//   drag X Y X2 Y2 MS     shot FILE.png       lang NAME      view ID        quit
// Pictures go into the folder that ZOF_SHOTS names, else into the current one.
//   print VIEW CTRL       one line "VIEW/CTRL: its text"
//   until MS VIEW CTRL T  waits until the label's text is T ("*" for any but one with a dash); ends after MS with
//                         exit status 3
// An invalid line ends the process with status 2 after a message with file and line.
void zof_script_start(void);

ZOF_C_END

#endif
