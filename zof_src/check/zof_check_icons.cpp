// Icons in texts: the names in config/icons.g, and texts that use a name that is not among them.
#include <cstring>
#include <string>

#include "check/zof_check_in.h"
#include "zof_lib/zof_util.h"

void check_icon_file(check_run_t *c, const check_file_t *file) {
    for (u32 at = file->doc.nodes[0].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        char text[64] = "";
        zof_jdoc_text(&file->doc, at, text, sizeof text);
        const size_t digits = std::strspn(text + (text[0] != '\0'), "+0123456789abcdefABCDEF");
        const bool form = (text[0] == 'U' || text[0] == 'u') && text[1] == '+' && digits >= 3 && digits <= 7;
        if (!form || text[1 + digits]) {
            check_report(c, file, at, CHECK_KIND, "expected a letter as \"U+E000\"");
        }
    }
}

// Reports an icon name that does not exist. check_icon_use does not pass names that are clearly something else, such as
// the minutes in "12:30:45".
static void name_check(check_run_t *c, const check_file_t *file, u32 node, const check_file_t *icons,
                       const char *name) {
    char meant[64] = "";
    u32 least = ZOF_TEXT_NEAR;
    for (u32 at = icons->doc.nodes[0].child; at != ZOF_J_NONE; at = icons->doc.nodes[at].next) {
        char icon[sizeof meant];
        zof_jdoc_key(&icons->doc, at, icon, sizeof icon);
        if (check_same(icon, name)) {
            return;
        }
        if (zof_text_nearer(name, icon, &least)) {
            std::strcpy(meant, icon);
        }
    }
    check_report(c, file, node, CHECK_ICON, meant[0] ? "there is no icon %s; did you mean %s?" : "there is no icon %s",
                 name, meant);
}

void check_icon_use(check_run_t *c, const check_file_t *file, u32 node, const char *text) {
    const check_file_t *icons = check_file_find(c, "config/icons.g", false);
    if (!icons || !check_file_whole(icons)) {
        return;
    }
    for (const char *at = std::strchr(text, ':'); at; at = std::strchr(at, ':')) {
        const size_t length = std::strcspn(++at, ": \n");
        const bool alone = at - text == 1 || at[-2] == ' ' || at[-2] == '\n';
        if (length && at[length] == ':' && alone && (at[length + 1] == ' ' || at[length + 1] == '\0')) {
            name_check(c, file, node, icons, std::string(at, length).c_str());
            at += length + 1;
        }
    }
}
