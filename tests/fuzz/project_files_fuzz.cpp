// The loader of project files, of themes up to the controls that they restyle, and of views up to their controls on the
// screen. The first byte selects the kind of file, the rest is its text.
#include "fuzz.h"

#include "project/base/zof_prj_up.h"
#include "project/look/zof_lang.h"
#include "project/read/zof_j2s.h"
#include "project/view/zof_view.h"
#include "view_project.h"

enum { HOME = 1, SHOWN_MS = 40 };

static view_project_t project;
static constexpr const char *themed[] = {"label", "button", "slider"};

void fuzz_open() {
    project.more = R"(, "start_page": 1, "language": "en")";
    project.write("config/languages/en.g", R"({"hello": "hello"})");
    project.image("red.png", 20, 20, 0xFF0000);
    project.write("font/t.ttf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    // A control of each type with a theme.
    for (const char *type : themed) {
        project.write(std::string("config/theme/youth/") + type + ".g",
                      R"({"styles": [{"body_t": {"main_color": 9}}]})");
    }
    project.view(HOME, {ctrl(ZOF_CTRL_LABEL, 5), ctrl(ZOF_CTRL_BTN, 6), ctrl(ZOF_CTRL_SLIDER, 7),
                        ctrl(ZOF_CTRL_BTN, 8, R"("styles": [{"style_state": 32, "txt_t": {"font_lib": "t.ttf"}}])")
                            .insert(1, R"("look": "one", )")});
    project.write("config/looks.g", R"({"colors": {"a": 7}, "looks": {"two": {"body_t": {"main_color": "$a"}},
                                        "one": {"is": "two", "items:pressed": {"txt_t": {"font_lib": "t.ttf"}}}}})");
    project.view(2, {});
    project.open(160, 120);
}

static void name_free(void *entry) {
    zof_res_path_free(((zof_view_name_t *)entry)->name);
    zof_free(entry);
}

static void project_read(const std::string &path) {
    zof_prj_attr_t *attr = zof_j2s_get_prj_attr(path.c_str());
    db_list *names = zof_view_name_list_get(nullptr);
    __db_list_destory(names, name_free);
    if (attr) {
        FreePrjStruct(attr);
        zof_free(attr);
    }
}

static void language_read(const std::string &) {
    zof_lang_set("x");
    zof_lang_set_cur_str("#hello", "a longer text than before");
    zof_lang_get_cur_str("#hello");
    zof_lang_set("en");
}

static void link_read(const std::string &path) {
    zof_hmi_attr_t attr = {};
    zof_rootjson_t file = RootJsonGet(path.c_str());
    if (file.root) {
        GetHmiStruct(file.root, &attr);
        csonFreePointer(&attr, zof_hmi_attr_t_tbl);
    }
    RootJsonDel(&file);
}

// Uses one text as the theme of each type in turn, and sets and removes it.
static void theme_read(const std::string &path) {
    const std::string text = file_text(path);
    zof_view_set_dis_view(HOME);
    for (const char *type : themed) {
        project.write(std::string("config/theme/x/") + type + ".g", text);
        zof_theme_set("x");
        screen_step(SHOWN_MS);
        zof_theme_set("youth");
        unlink(project.path(std::string("config/theme/x/") + type + ".g").c_str());
    }
}

// The text as the looks of a theme that is new each time, because a file of looks is read only once.
static void looks_read(const std::string &path) {
    static u32 count;
    const std::string theme = "looks" + std::to_string(count++);
    const std::string file = "config/theme/" + theme + "/looks.g";
    project.write(file, file_text(path));
    zof_view_set_dis_view(HOME);
    zof_theme_set(theme.c_str());
    screen_step(SHOWN_MS);
    zof_theme_set("youth");
    std::filesystem::remove_all(project.path("config/theme/" + theme));
}

// Views are never released; this one must make room for the next.
static void view_forget(zof_view_node_t *node) {
    while (auto *record = (para_t *)__db_list_pop(node->ctrl_list)) {
        zof_prj_up.ctrl_delete(record);
        zof_free(record);
    }
    __db_list_destory(node->ctrl_list, nullptr);
    if (node->obj) {
        lv_obj_del(node->obj);
    }
    FreeViewStruct(node->attr);
    zof_free(node->attr);
    zof_free(node);
}

// Loaded, shown, left and shown again.
static void view_show(const std::string &) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (zof_view_load(2) == 0) {
        zof_view_node_t *node = (zof_view_node_t *)__db_list_visit(prj->view_list, 1);
        const u32 id = node ? node->attr->v_id : 0;
        for (int i = 0; i < 2; i++) {
            zof_view_set_dis_view(id);
            screen_step(SHOWN_MS);
            zof_view_set_dis_view(HOME);
            for (u32 layer = 1; layer < ZOF_LAYER_COUNT; layer++) {
                zof_view_hide_layer(layer);
            }
        }
    }
    while (auto *node = (zof_view_node_t *)__db_list_visit_and_pop(prj->view_list, 1)) {
        for (zof_view_node_t *&shown : prj->cur_view) {
            shown = shown == node ? nullptr : shown;
        }
        view_forget(node);
    }
}

static const struct {
    const char *file;
    void (*read)(const std::string &path);
} kinds[] = {{"config/project/x.g", project_read}, {"config/languages/x.g", language_read},
             {"config/project/x.g", link_read},    {"config/theme/x.g", theme_read},
             {"config/view/v2.g", view_show}, // most inputs
             {"config/view/v2.g", view_show},      {"config/view/v2.g", view_show},
             {"config/theme/looks.g", looks_read}};

void fuzz_one(fuzz_input &in) {
    const auto &kind = kinds[fuzz_byte(in) % std::size(kinds)];
    project.write(kind.file, fuzz_text(in));
    kind.read(project.path(kind.file));
}
