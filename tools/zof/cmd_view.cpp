// `zof view`: shows a project folder; see view/view.h.
#include "view.h"
#include "zof.h"

static void options(CLI::App &app) {
    app.add_option("DIR", view_options.dir, "the project folder, or the one that its res is in");
    app.add_option("--attach", view_options.port, "show the program that runs with ZOF_INSPECT=PORT, not a folder")
        ->type_name("PORT")
        ->check(CLI::Range(1, 65535));
    app.add_option("--view", view_options.view, "the view, by the name of its file or by its id")->type_name("NAME");
    app.add_option("--lang", view_options.language, "the language")->type_name("NAME");
    app.add_option("--theme", view_options.theme, "the theme")->type_name("NAME");
    app.add_option("--state", view_options.states, "states of a control, for --shot: home/brew=pressed+checked")
        ->type_name("CONTROL=STATES")
        ->allow_extra_args(false);
    app.add_flag("--watch", view_options.watch, "show every change of the folder at once");
    app.add_option("--shot", view_options.shot, "write one picture, PNG; - is standard output")->type_name("FILE");
    app.add_option("--sheet", view_options.sheet, "write a sheet of all views, languages and themes, PNG")
        ->type_name("FILE");
    app.add_option("--tree", view_options.tree, "write the controls as JSON")->type_name("FILE");
    app.add_flag("--log", view_options.loud, "print the log of the runtime");
}

static int run() {
    const bool attached = view_options.port != 0;
    if (attached != view_options.dir.empty() || (attached && (view_options.watch || !view_options.sheet.empty()))) {
        fprintf(stderr, "zof view: give a folder, or --attach PORT without --watch and --sheet\n");
        return ZOF_EXIT_USAGE;
    }
    const bool files = !view_options.shot.empty() || !view_options.sheet.empty() || !view_options.tree.empty();
    return files ? view_files_write() : view_window_run();
}

const zof_command_t zof_view_command = {
    .name = "view",
    .help = "show a project folder without a program",
    .examples = "  zof view res --watch                   a window that follows every change\n"
                "  zof view res --view home --lang de     one view, in German\n"
                "  zof view res --shot home.png           a picture, without a display\n"
                "  zof view res --sheet all.png           every view in every language and theme\n"
                "  zof view res --tree - | jq .           the controls, their boxes and their places\n"
                "  zof view --attach 5040 --shot now.png  what a program that runs with ZOF_INSPECT=5040 shows\n\n"
                "Keys of the window: Page Up, Page Down the view; L the language; T the theme; F2 the inspector:\n"
                "Tab walks through what lies under the pointer, Enter opens $EDITOR at its place, C copies the\n"
                "line of Python that sets its value. All other keys go to the panel.",
    .options = options,
    .run = run,
};
