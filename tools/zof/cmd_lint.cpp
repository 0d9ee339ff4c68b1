// zof lint: draws a project and reports what a reviewer would, see lint/lint.h.
#include <cstdio>

#include "findings.h"
#include "lint.h"
#include "view.h"
#include "zof.h"

enum : u32 { RED = 0xE02020 };

static struct {
    std::string format = "text", sheet;
    bool strict = false, rules = false;
} opt;

static void options(CLI::App &app) {
    app.add_option("DIR", view_options.dir, "the project folder, or the one that its res is in");
    app.add_option("--view", view_options.view, "only this view, by the name of its file or by its id")
        ->type_name("NAME");
    app.add_option("--lang", view_options.language, "only this language")->type_name("NAME");
    app.add_option("--theme", view_options.theme, "only this theme")->type_name("NAME");
    app.add_option("--sheet", opt.sheet, "draw a sheet of all pictures with the findings in red, PNG")
        ->type_name("FILE");
    app.add_option("--format", opt.format, "text, or json: an array with one object for each finding")
        ->type_name("text|json")
        ->check(CLI::IsMember({"text", "json"}));
    app.add_flag("--strict", opt.strict, "warnings are errors");
    app.add_flag("--rules", opt.rules, "list the rules");
    app.add_flag("--log", view_options.loud, "print the log of the runtime");
}

// Marks each finding with the number of its line in the output.
static void sheet_mark(view_sheet_t *sheet, const lint_t &lint, const zof_check_t &check) {
    for (u32 i = 0; i < check.count; i++) {
        const zof_finding_t &shown = check.findings[i];
        for (const auto &[name, finding] : lint.found) {
            const bool same = finding.rule == shown.rule && finding.line == shown.line && finding.col == shown.col &&
                              finding.file == shown.file && finding.text == shown.text;
            for (size_t mark = 0; same && mark < finding.marks.size(); mark++) {
                view_sheet_mark(sheet, finding.marks[mark].cell, finding.marks[mark].box, std::to_string(i + 1), RED);
            }
        }
    }
}

// Returns false after a message if a view cannot be drawn.
static bool all_draw(lint_t *lint, view_sheet_t *sheet) {
    bool good = true;
    const auto cell_take = [&](view_player_t *player, const view_cell_t &cell) {
        cJSON *review = cell.shown ? view_ask(player, view_command("review")) : nullptr;
        good = good && review;
        lint_take(lint, review, cell);
        cJSON_Delete(review);
        if (!opt.sheet.empty()) {
            view_sheet_draw(sheet, player, cell);
        }
    };
    return view_walk(lint->plan, cell_take) && good;
}

static int lint_run(const cJSON *project, const std::string &folder) {
    lint_t lint = {.plan = view_plan(project)};
    lint.folder = cJSON_GetStringValue(cJSON_GetObjectItem(project, "folder"));
    view_sheet_t sheet = view_sheet(lint.plan);
    if (!all_draw(&lint, &sheet)) {
        return ZOF_EXIT_UNREADABLE;
    }
    zof_check_t check = {};
    lint_end(&lint, folder.c_str(), &check);
    findings_print(folder.c_str(), check, opt.format == "json", opt.strict);
    int status = check.count ? ZOF_EXIT_FINDINGS : ZOF_EXIT_CLEAN;
    if (!opt.sheet.empty()) {
        sheet_mark(&sheet, lint, check);
        status = view_file_write(opt.sheet, view_png(sheet.image)) ? status : (int)ZOF_EXIT_UNREADABLE;
    }
    zof_check_free(&check);
    return status;
}

static int run() {
    char folder[1024];
    view_options.command = "lint";
    if (opt.rules) {
        rules_print(zof_lint_rules);
        return ZOF_EXIT_CLEAN;
    }
    if (view_options.dir.empty()) {
        fprintf(stderr, "zof lint: a project folder is missing\n");
        return ZOF_EXIT_USAGE;
    }
    if (zof_check_find(view_options.dir.c_str(), folder, sizeof folder) != 0) {
        fprintf(stderr, "zof lint: %s: there is no config/project/zofprj.g in it\n", view_options.dir.c_str());
        return ZOF_EXIT_UNREADABLE;
    }
    view_player_t player;
    cJSON *project = view_load(&player, true);
    view_player_stop(&player);
    const int status = project ? lint_run(project, folder) : (int)ZOF_EXIT_UNREADABLE;
    cJSON_Delete(project);
    return status;
}

const zof_command_t zof_lint_command = {
    .name = "lint",
    .help = "draw a project folder and report what a reviewer would see",
    .examples = "  zof lint res                      every view in every language and theme\n"
                "  zof lint res --sheet lint.png     the pictures, with the findings in red\n"
                "  zof lint res --view home --lang de\n"
                "  zof lint --rules\n"
                "A file zof-check.ignore in the project folder names findings that are meant to be so, one on each\n"
                "line:\n"
                "  RULE FILE[:KEY] REASON     target config/view/home.g:controls[3]* it is for a pen",
    .options = options,
    .run = run,
};
