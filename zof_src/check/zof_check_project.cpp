// The project file with its views and start page, and the file of the host link.
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "project/base/zof_prj_attr.h"

enum { NAME_SIZE = 512 };

// Reports an entry whose id or file is also in an earlier entry.
static void entry_twice(check_run_t *c, u32 entry, s64 id, const char *name) {
    const check_file_t *file = c->project;
    for (u32 at = file->doc.nodes[file->doc.nodes[entry].parent].child; at != entry; at = file->doc.nodes[at].next) {
        char other[NAME_SIZE] = "";
        check_text(file, at, "pageName", other, sizeof other);
        if (check_number(file, at, "pageId", nullptr, -1) == id) {
            check_report(c, file, zof_jdoc_get(&file->doc, entry, "pageId"), CHECK_VIEW_ENTRY,
                         "%s has the pageId %lld already; this entry is left out", other, (long long)id);
        }
        if (strcmp(other, name) == 0) {
            check_report(c, file, zof_jdoc_get(&file->doc, entry, "pageName"), CHECK_VIEW_ENTRY,
                         "the file has an entry already");
        }
    }
}

static void entry_check(check_run_t *c, u32 entry) {
    const check_file_t *file = c->project;
    const u32 node = zof_jdoc_get(&file->doc, entry, "pageName");
    char name[NAME_SIZE];
    if (!check_text(file, entry, "pageName", name, sizeof name)) {
        return; // a missing key has been reported
    }
    check_file_t *view = check_file_named(c, file, node, "config/view/", name);
    if (view) {
        view->listed = true;
    }
    const s64 id = check_number(file, entry, "pageId", nullptr, -1);
    entry_twice(c, entry, id, name);
    const u32 v_id = view && view->doc.count ? zof_jdoc_find(&view->doc, 0, "view.v_id") : ZOF_J_NONE;
    s64 said = 0;
    if (v_id != ZOF_J_NONE && check_number_of(view, v_id, nullptr, &said) && said != id) {
        check_report(c, view, v_id, CHECK_VIEW_ID, "v_id is %lld, but the project file gives this view the pageId %lld",
                     (long long)said, (long long)id);
    }
}

static bool view_known(const check_file_t *file, u32 views, s64 id) {
    for (u32 at = file->doc.nodes[views].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        if (check_number(file, at, "pageId", nullptr, -1) == id) {
            return true;
        }
    }
    return false;
}

// Checks a key that holds the id of a view. If the key is not needed, 0 means no view.
static void view_named(check_run_t *c, u32 views, const char *path, bool needed) {
    const check_file_t *file = c->project;
    const u32 node = zof_jdoc_find(&file->doc, 0, path);
    s64 id = 0;
    if (node != ZOF_J_NONE && check_number_of(file, node, nullptr, &id) && (id || needed) &&
        !view_known(file, views, id)) {
        check_report(c, file, node, CHECK_START_PAGE, "no view has the pageId %lld", (long long)id);
    }
}

static void views_check(check_run_t *c) {
    const check_file_t *file = c->project;
    const u32 views = zof_jdoc_get(&file->doc, 0, "views");
    if (views == ZOF_J_NONE || file->doc.nodes[views].kind != ZOF_J_ARRAY) {
        return;
    }
    for (u32 at = file->doc.nodes[views].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        if (file->doc.nodes[at].kind == ZOF_J_OBJECT) {
            entry_check(c, at);
        }
    }
    view_named(c, views, "start_page", true);
    view_named(c, views, "func_t.standby_t.stdby_view", false);
    view_named(c, views, "func_t.standby_t.on_view", false);
    for (u32 i = 0; i < c->files.count; i++) {
        const check_file_t *other = &c->files.at[i];
        if (check_begins(other->path, "config/view/") && !other->listed && !other->refused) {
            check_report(c, other, 0, CHECK_VIEW_UNLISTED, "the project file has no entry for this view");
        }
    }
}

static void language_check(check_run_t *c) {
    char name[NAME_SIZE], path[NAME_SIZE + 32];
    const u32 node = zof_jdoc_get(&c->project->doc, 0, "language");
    if (!check_text(c->project, 0, "language", name, sizeof name) || !name[0]) {
        return;
    }
    std::snprintf(path, sizeof path, "config/languages/%s.g", name);
    const check_file_t *found = check_file_find(c, path, true);
    if (!found) {
        check_report(c, c->project, node, CHECK_LANGUAGE, "there is no %s", path);
    } else if (strcmp(found->path, path) != 0) {
        check_report(c, c->project, node, CHECK_FILE_CASE, "the file is %s", found->path);
    }
}

void check_project_file(check_run_t *c) {
    const check_file_t *file = c->project;
    if (!check_file_whole(file)) {
        return;
    }
    check_object(c, file, 0, check_root("config/project/zofprj.g"), nullptr);
    c->width = check_number(file, 0, "width", nullptr, 0);
    c->height = check_number(file, 0, "height", nullptr, 0);
    views_check(c);
    language_check(c);
}

void check_link_file(check_run_t *c, const check_file_t *file) {
    check_object(c, file, 0, check_root("config/project/zofhmi.g"), nullptr);
    const u32 node = zof_jdoc_get(&file->doc, 0, "head_fl");
    if (check_number(file, 0, "hmi_en", nullptr, 0) && node != ZOF_J_NONE &&
        check_number(file, 0, "head_fh", nullptr, 0) == check_number(file, 0, "head_fl", nullptr, 0)) {
        check_report(c, file, node, CHECK_LINK, "head_fh and head_fl are equal, so no link is opened");
    }
}

void check_language_need(check_run_t *c) {
    const check_file_t *file = c->project;
    char name[NAME_SIZE] = "";
    check_text(file, 0, "language", name, sizeof name);
    if (c->uses.count && !name[0] && check_file_whole(file)) {
        check_report_key(c, file, 0, CHECK_INCOMPLETE,
                         "language is missing, so \"#%s\" is shown as it is until the program sets one",
                         c->uses.at[0].key);
    }
}
