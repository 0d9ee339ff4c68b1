// Bringing a project up: logo, image cache, start view, and the views that are loaded ahead.
#include "screen_fixture.h"
#include "temp_project.h"
#include "zof_test.h"

extern "C" unsigned lodepng_encode32(unsigned char **out, size_t *size, const unsigned char *image, unsigned w,
                                     unsigned h);

static struct {
    u32 logo_pixel;         // in the middle of the panel, when the first view is made
    std::vector<int> calls; // view id for init, 10 times that for entry
} seen;

static void init_of(int id) {
    s32 width = 0;
    s32 height = 0;
    const u32 *frame = sdl_frame_get(&width, &height);
    if (seen.calls.empty() && frame) {
        seen.logo_pixel = frame[height / 2 * width + width / 2] & 0xFFFFFF;
    }
    seen.calls.push_back(id);
    zof_view_create(static_cast<u32>(id), nullptr, 0);
}

static const zof_view_fun_t views[] = {
    {1, [] { init_of(1); }, [] { seen.calls.push_back(10); }, nullptr},
    {2, [] { init_of(2); }, [] { seen.calls.push_back(20); }, nullptr},
    {3, [] { init_of(3); }, [] { seen.calls.push_back(30); }, nullptr},
};

static const char *view_text(int id) {
    static std::string text;
    text = R"({"view": {"v_id": )" + std::to_string(id) + R"(, "bg_color": 255, "bg_scale": 255}, "controls": []})";
    return text.c_str();
}

// The project's own keys, and three views of which the second has no file.
static void write_project(const temp_project_t &project, const std::string &keys) {
    project.write("config/project/zofprj.g", R"({"width": 320, "height": 240, "views": [{"pageId": 3, "pageName":
        "three.g"}, {"pageId": 2, "pageName": "two.g"}, {"pageId": 1, "pageName": "one.g"}], )" +
                                                 keys + "}");
    project.write("config/view/one.g", view_text(1));
    project.write("config/view/three.g", view_text(3));
}

TEST_CASE("the logo is on the screen before the first view, and the views are loaded in file order") {
    temp_project_t project;
    write_project(project, R"("start_page": 1, "init_allview": 1)");
    std::vector<unsigned char> red(static_cast<size_t>(20 * 20 * 4), 0xFF);
    for (size_t i = 0; i < red.size(); i += 4) {
        red[i + 1] = red[i + 2] = 0;
    }
    unsigned char *png = nullptr;
    size_t size = 0;
    REQUIRE(lodepng_encode32(&png, &size, red.data(), 20, 20) == 0);
    project.write("image/logo.png", std::string(png, png + size));
    lv_mem_free(png);
    REQUIRE(project.open());
    screen_open(320, 240);
    screen_step(10); // drawn just now, so that the next refresh is not due: the logo has to force one
    std::string log = printed([] { CHECK(zof_prj_create(views, 3) == 0); });
    CHECK(seen.calls == std::vector<int>{1, 10, 3});
    CHECK(contains(log, "two.g: cannot be read"));
    CHECK(lv_obj_get_child_cnt(lv_scr_act()) == 0); // the logo is gone
    CHECK(seen.logo_pixel == 0xFF0000);
    CHECK(screen_pixel(160, 120) == 0x0000FF);
}

TEST_CASE("a start view that does not exist leaves the screen as it is") {
    temp_project_t project;
    screen_open(320, 240);
    lv_obj_t *screen = lv_scr_act();
    for (const char *keys : {R"("start_page": 9)", R"("start_page": 2)", R"("start_page": 0)"}) {
        CAPTURE(keys);
        write_project(project, keys);
        REQUIRE(project.open());
        printed([] { CHECK(zof_prj_create(views, 3) == 0); });
        CHECK(lv_scr_act() == screen);
        CHECK(seen.calls.empty());
    }
    CHECK(zof_prj_create(nullptr, 3) == 0);
}

TEST_CASE("the image cache has as many entries as the project says, 100 at most, and stays for none") {
    temp_project_t project;
    screen_open(320, 240);
    auto bytes_with = [&](const char *keys) {
        write_project(project, keys);
        REQUIRE(project.open());
        zof_prj_create(views, 0);
        return zof_lv_mem_count();
    };
    bytes_with(R"("cacheImg": 1)");
    u32 one = bytes_with(R"("cacheImg": 1)");
    u32 two = bytes_with(R"("cacheImg": 2)");
    u32 hundred = bytes_with(R"("cacheImg": 100)");
    CHECK(hundred - one == 99 * (two - one));
    CHECK(bytes_with(R"("cacheImg": 101)") == hundred);
    CHECK(bytes_with(R"("cacheImg": 250)") == hundred);
    CHECK(bytes_with(R"("cacheImg": 0)") == hundred);
}
