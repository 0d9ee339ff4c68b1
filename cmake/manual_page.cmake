# Writes the manual page PAGE of PROGRAM, whose --help prints its purpose in the first line, or in the line after "usage:".
get_filename_component(name ${PROGRAM} NAME_WE)
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ${PROGRAM} ${name} help "${help}")
string(REGEX MATCH "([Uu]sage: [^\n]*)\n" usage "${help}")
string(REPLACE "${usage}" "" help "${help}")
string(REGEX REPLACE "^[Uu]sage: ([^\n]*)\n" "\\1" usage "${usage}")
string(REGEX MATCH "^([^\n]*)\n" purpose "${help}")
string(REGEX REPLACE "\\.?\n$" "" purpose "${purpose}")
foreach(text help usage purpose)
  string(REPLACE "\\" "\\e" ${text} "${${text}}")
  string(REPLACE "-" "\\-" ${text} "${${text}}")
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" ${text} "${${text}}") # the beginning of a request
endforeach()
string(TOUPPER ${name} title)
file(WRITE ${PAGE} ".TH ${title} 1 \"\" \"zof ${VERSION}\"\n.SH NAME\n${name} \\- ${purpose}\n.SH SYNOPSIS\n${usage}\n"
                   ".SH DESCRIPTION\n.nf\n${help}.fi\n")
