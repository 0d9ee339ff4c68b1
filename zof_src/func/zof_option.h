// The command line of a program. Each option is a row, from which the parser, --help and the manual are made. The
// runtime has rows of its own (zof_option_rows.cpp); an application may add more, and replace one by its name.
//
//     static const zof_option_t options[] = {{"--replay", NULL, "FILE", "shows a recording", NULL, replay_take}};
//     static const zof_app_t app = {.about = "A panel.", .options = options, .option_count = 1};
//     int main(int argc, char **argv) {
//         zof_app_set(&app);
//         return zof_run(argc, argv);
//     }
#ifndef ZOF_OPTION_H
#define ZOF_OPTION_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    const char *name;               // "--scale"
    const char *letter;             // "-h", or null
    const char *value;              // what follows, as --help shows it: "N"; null for an option without a value
    const char *help;               // one line, without a full stop
    const char *excludes;           // the name of an option that cannot be given too, or null
    int (*take)(const char *value); // Applies it. Returns -1 to go on; otherwise the program ends with this status.
                                    // Null: prints the help.
} zof_option_t;

// A variable of the environment that a program reads.
typedef struct {
    const char *name; // "ZOF_SCRIPT=FILE"
    const char *help; // one line, without a full stop
} zof_variable_t;

typedef struct {
    int status; // ZOF_EXIT_GOOD ...
    const char *help;
} zof_exit_t;

// What an application adds. Null pointers and counts of 0 add nothing.
typedef struct {
    const char *about; // the first line of --help
    const zof_option_t *options;
    u32 option_count;
    const zof_variable_t *variables;
    u32 variable_count;
    void (*more)(void); // prints further help to the standard output
} zof_app_t;

// Sets what the application adds; kept, not copied. Call it before zof_run.
void zof_app_set(const zof_app_t *app);

// Takes the options of a command line: first all are checked, then they are applied in the order of the rows, the
// application's before the runtime's. Returns -1 if the program is to start, otherwise its exit status:
// ZOF_EXIT_USAGE after a message on the error stream if an argument is wrong, and what a row returns. Main thread,
// called by zof_run.
int zof_options_take(int argc, char **argv);

// Takes the value "N=PATH" of --port for an application that replaces this option. Returns -1 after it has set the path
// of the serial port N, ZOF_EXIT_USAGE after a message.
int zof_option_port(const char *value);

// Rows of the runtime, for the manual; each table ends with a row without a name or help.
extern const zof_option_t zof_options[];
extern const zof_variable_t zof_variables[];
extern const zof_exit_t zof_exits[];

ZOF_C_END

#endif
