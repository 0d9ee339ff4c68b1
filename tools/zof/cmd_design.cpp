// zof design: a page on which a project is edited; see design/design.h.
#include "catalogue/json.h"
#include "design/design.h"
#include "zof.h"

static design_options_t options;

static void options_add(CLI::App &app) {
    app.add_option("DIR", options.dir, "the project folder, or the one that its res is in")->required();
    app.add_option("--port", options.port, "the port on 127.0.0.1; otherwise any free one")
        ->type_name("PORT")
        ->check(CLI::Range(1, 65535));
    app.add_flag("--open", options.open, "open the page in the browser");
    app.add_flag("--log", options.loud, "print the log of the runtime");
    app.add_option("--page", options.page, "read the files of the page from a folder, to work on the page")
        ->type_name("FOLDER");
}

static int run() {
    options.catalogue = cat_json();
    return design_run(options);
}

const zof_command_t zof_design_command = {
    .name = "design",
    .help = "edit a project folder on a page in the browser",
    .examples = "  zof design coffee --open        coffee/ or coffee/res/ is the project folder\n"
                "  zof design coffee --port 8080   prints the address of the page\n"
                "The page shows what the runtime draws. Each change is written to the project's files at once, and\n"
                "changes only the bytes of its values. The page can be reached from this machine alone.",
    .options = options_add,
    .run = run,
};
