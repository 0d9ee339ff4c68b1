// Memory over many openings of the gallery's views, with controls that stay and with controls that come and go. The
// suite opens each view about a hundred times; ZOF_OPENINGS=10000 opens each that often.
#include "gallery_fixture.h"
#include "temp_project.h"

static std::string held() {
    static u32 timers, fonts;
    timers = fonts = 0;
    lv_img_cache_invalidate_src(nullptr); // which pictures it holds depends on the state of their sequence
    for (const lv_timer_t *t = lv_timer_get_next(nullptr); t; t = lv_timer_get_next((lv_timer_t *)t)) {
        timers++;
    }
    __db_list_travel(zof_prj_get_cur()->font_list, [](void *font) {
        __db_list_travel(((zof_font_t *)font)->sizes, [](void *) { fonts++; }); // their users are never released
    });
    const u32 lvgl = zof_lv_mem_count() / 64 * 64; // the current picture of a sequence has one digit or two in its name
    return form("%u + %u bytes, %u timers, %u fonts", zof_mem_count(), lvgl, timers, fonts);
}

// Shows each view and leaves it for the next; the last one left is the first of the next round.
static void open_all(u32 step_ms) {
    for (u32 view = GALLERY_INDEX; view <= GALLERY_VIEWS; view++) {
        zof_view_set_dis_view(view);
        screen_now += step_ms;
        lv_timer_handler();
    }
    zof_view_set_dis_view(GALLERY_INDEX);
}

static void open_often(u32 rounds) {
    const char *wanted = getenv("ZOF_OPENINGS");
    std::string before;
    for (u32 count : {3u, wanted ? (u32)atoi(wanted) : rounds}) { // the first ones fill the caches
        before = held();
        for (u32 i = 0; i < count; i++) {
            open_all(20);
        }
        screen_step(2000);
    }
    CHECK(held() == before);
}

// A copy of the gallery in which all controls are recreated whenever their view is shown.
static const char *fleeting_gallery() {
    namespace fs = std::filesystem;
    static temp_project_t project;
    fs::copy(ZOF_GALLERY_DIR "/res", project.folder,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    for (const auto &file : fs::directory_iterator(project.path("config/view"))) {
        std::string text = file_text(file.path());
        for (size_t at = 0; (at = text.find("\"pub\": false", at)) != text.npos;) {
            text.replace(at, 12, "\"pub\": true");
        }
        project.write("config/view/" + file.path().filename().string(), text);
    }
    return project.top.c_str();
}

TEST_CASE("views are opened and left a thousand times, and memory, timers and fonts are as before") {
    gallery_open();
    open_often(60);
}

TEST_CASE("views whose controls come and go with them leak nothing") {
    gallery_open(fleeting_gallery());
    open_often(20);
}
