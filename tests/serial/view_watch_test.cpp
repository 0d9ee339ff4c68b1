// `zof view --watch` without its window: what is shown while a folder is edited.
#include <signal.h>

#include <chrono>
#include <random>

#include "eventually.h"
#include "temp_project.h"
#include "view_inspector.h"
#include "view_session.h"

static const char view_g[] = "config/view/home.g";

// A view that is one colour, with a label that a host may write.
static std::string view(u32 color, const std::string &more = "") {
    return R"({"view": {"v_name": "home", "v_id": 2, "bg_scale": 255, "bg_color": )" + std::to_string(color) + more +
           R"(},
 "controls": [{"type": 0, "theme": "night", "property": {"pub_t": {"name": "text", "id": 1, "pt": {"x": 4, "y": 4},
    "size": {"width": 90, "height": 30}, "alpha": 255}, "txt": "#word"}}]})";
}

struct watched {
    temp_project_t project;
    view_session_t session = {};

    watched() {
        setenv("ZOF_PLAYER", ZOF_BUILD_DIR "/tools/zof_player", 1);
        project.write("config/project/zofprj.g", R"({"width": 100, "height": 80, "start_page": 1, "language": "en",
            "views": [{"pageId": 1, "pageName": "first.g"}, {"pageId": 2, "pageName": "home.g"}]})");
        project.write("config/view/first.g", R"({"view": {"v_id": 1}, "controls": []})");
        project.write(view_g, view(0xFF));
        for (const char *lang : {"en", "de"}) {
            project.write(std::string("config/languages/") + lang + ".g", R"({"word": ")" + std::string(lang) + "\"}");
        }
        session.dir = project.top;
        session.live = true;
        session.first = cJSON_Parse(R"({"do": "load", "view": "home", "language": "de"})");
        REQUIRE(view_session_start(&session, true) == "");
    }
    ~watched() {
        view_session_stop(&session);
    }

    u32 pixel() const {
        return session.picture.pixels.empty() ? 1 : session.picture.pixels[99] & 0xFFFFFF; // the upper right corner
    }

    template <typename F> bool until(F true_now) {
        return eventually([&] {
            view_session_step(&session, 1);
            return true_now();
        });
    }

    std::string tell(const char *line) {
        std::string reply;
        s32 id = 0;
        session.tell = [&](const cJSON *got) {
            const cJSON *of = cJSON_GetObjectItem(got, "id");
            char *text = cJSON_IsNumber(of) && of->valueint == id ? cJSON_PrintUnformatted(got) : nullptr;
            reply += text ? text : "";
            cJSON_free(text);
        };
        id = view_session_send(&session, cJSON_Parse(line));
        CHECK(until([&] { return contains(reply, "\"id\""); }));
        session.tell = nullptr;
        return reply;
    }
};

TEST_CASE("a watched folder shows each save, and after a fault the last good picture stays with a message") {
    watched w;
    CHECK(w.until([&] { return w.pixel() == 0xFF; }));
    CHECK(w.session.note == "");
    w.tell(R"({"do": "set", "row": "label.text", "control": "home/text", "value": "by host"})");

    w.project.write(view_g, view(0xFF00));
    CHECK(w.until([&] { return w.pixel() == 0xFF00; }));
    const std::string tree = w.tell(R"({"do": "tree"})"); // the same view and language, and what was written
    CHECK(contains(tree, R"("text":"by host")"));
    CHECK(contains(w.tell(R"({"do": "snapshot"})"), R"("language":"de")"));

    std::string broken = view(0xFF0000);
    broken.erase(broken.find("},\n") + 1, 1);
    w.project.write(view_g, broken);
    CHECK(w.until([&] { return w.session.note == "home.g:2:2: expected \",\""; }));
    CHECK(w.session.note_grave);
    CHECK(w.pixel() == 0xFF00);

    w.project.write(view_g, view(0xFF00));
    for (const auto &[file, text, note] :
         {std::tuple("config/languages/de.g", "{\"word\": }", "de.g:1:10: expected a value"),
          {view_g, "", "home.g: "}}) {
        const std::string good = file_text(w.project.path(file));
        w.project.write(file, text);
        CHECK(w.until([&] { return contains(w.session.note, note); }));
        CHECK((w.session.note_grave && w.pixel() == 0xFF00));
        w.project.write(file, good);
        CHECK(w.until([&] { return w.session.note.empty(); }));
    }

    // An editor that renames a new file over the old one, and a fault that is only a warning.
    w.project.write("config/view/home.g~", view(0xFF0000, R"(, "colour": 1)"));
    std::filesystem::rename(w.project.path("config/view/home.g~"), w.project.path(view_g));
    CHECK(w.until([&] { return w.pixel() == 0xFF0000; }));
    CHECK(contains(w.session.note, "home.g:1:"));
    CHECK(!w.session.note_grave);

    // A view that is gone for a moment is shown again when it is back.
    const std::string project = file_text(w.project.path("config/project/zofprj.g"));
    std::string without = project;
    without.replace(without.find("home.g"), 6, "none.g");
    w.project.write("config/project/zofprj.g", without);
    CHECK(w.until([&] { return w.pixel() != 0xFF0000; }));
    w.project.write("config/project/zofprj.g", project);
    CHECK(w.until([&] { return w.pixel() == 0xFF0000; }));

    kill(w.session.shown.child.process, SIGSEGV);
    CHECK(w.until([&] { return contains(w.session.note, "the player ended with"); }));
    CHECK(w.pixel() == 0xFF0000);
    std::filesystem::create_directories(w.project.path("image"));
    w.project.write(view_g, view(0xFFFF));
    CHECK(w.until([&] { return w.pixel() == 0xFFFF && w.session.note.empty(); }));
}

TEST_CASE("many random edits in a row neither end nor freeze a watched project") {
    watched w;
    const u32 seed = (u32)std::chrono::steady_clock::now().time_since_epoch().count();
    CAPTURE(seed);
    std::mt19937 random(seed);
    const std::string files[] = {view_g, "config/project/zofprj.g", "config/languages/de.g"};
    std::vector<std::string> good;
    for (const std::string &file : files) {
        good.push_back(file_text(w.project.path(file)));
    }
    const char *given = getenv("ZOF_EDITS");
    for (int i = 0; i < (given ? atoi(given) : 60); i++) {
        const size_t which = random() % 3;
        std::string text = good[which];
        for (u32 n = random() % 3; n > 0 && !text.empty(); n--) {
            text[random() % text.size()] = (char)random();
        }
        w.project.write(files[which], random() % 4 ? text : text.substr(0, random() % text.size()));
        if (random() % 8 == 0) {
            std::filesystem::remove(w.project.path(files[random() % 3]));
        }
        for (u32 n = random() % 10; n > 0; n--) {
            view_session_step(&w.session, 1);
        }
    }
    for (size_t i = 0; i < good.size(); i++) {
        w.project.write(files[i], good[i]);
    }
    w.project.write(view_g, view(0x123456));
    CHECK(w.until([&] { return w.pixel() == 0x123456 && w.session.note.empty(); }));
}

// The time given in the manual, from the end of a save to the pixels.
TEST_CASE("saves are shown soon") {
    watched w;
    REQUIRE(w.until([&] { return w.pixel() == 0xFF; }));
    const char *given = getenv("ZOF_SAVES");
    std::vector<double> times;
    for (u32 i = 1; i <= (given ? (u32)atoi(given) : 5); i++) {
        w.project.write(view_g, view(i << 8));
        const auto start = std::chrono::steady_clock::now();
        CHECK(w.until([&] { return w.pixel() == i << 8; }));
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        const auto pause = std::chrono::steady_clock::now() + std::chrono::milliseconds(60); // a person pauses, too
        while (given && std::chrono::steady_clock::now() < pause) {
            view_session_step(&w.session, 1);
        }
    }
    std::sort(times.begin(), times.end());
    if (given) {
        MESSAGE("save to pixels, ms: median " << times[times.size() / 2] << ", longest " << times.back());
    }
}

TEST_CASE("a running program is shown as it draws, and its picture stays when it ends") {
    temp_project_t runtime; // its folder is private, as the one for tokens must be
    setenv("XDG_RUNTIME_DIR", runtime.top.c_str(), 1);
    setenv("LOCALAPPDATA", runtime.top.c_str(), 1);
    setenv("ZOF_INSPECT", "0", 1);
    watched program;
    u32 port = 0;
    CHECK(program.until([&] {
        for (const auto &entry : std::filesystem::recursive_directory_iterator(runtime.top)) {
            if (entry.is_regular_file() && entry.file_size() == 32) { // the whole token
                sscanf(entry.path().filename().string().c_str(), "zof_inspect_%u", &port);
            }
        }
        return port != 0;
    }));
    view_session_t session = {.port = port, .first = cJSON_Parse(R"({"do": "load"})")};
    const auto shows = [&](const view_image_t &wanted) {
        return program.until([&] {
            view_session_step(&session, 1);
            return session.picture.pixels == wanted.pixels;
        });
    };
    REQUIRE(view_session_start(&session, false) == "");
    CHECK(shows(program.session.picture));
    program.tell(R"({"do": "set", "row": "label.text", "control": "home/text", "value": "by host"})");
    CHECK(shows(program.session.picture));
    session.tell = [&](const cJSON *line) {
        char *text = cJSON_PrintUnformatted(line);
        session.message = text;
        cJSON_free(text);
    };
    view_session_send(&session, cJSON_Parse(R"({"do": "show", "view": "first"})"));
    CHECK(program.until([&] {
        view_session_step(&session, 1);
        return contains(session.message, "needs ZOF_INSPECT_WRITE=1");
    }));
    kill(program.session.shown.child.process, SIGKILL);
    CHECK(eventually([&] {
        view_session_step(&session, 1);
        return session.note == "the program has ended";
    }));
    CHECK(session.picture.width == 100);
    view_session_stop(&session);
}

TEST_CASE("the inspector describes what lies under the pointer, and walks through it") {
    view_inspector_t inspector = {.on = true};
    cJSON *reply = cJSON_Parse(R"({"controls": [
        {"path": "home/brew", "type": "button", "view": 2, "id": 10, "parent": "home/box", "box": [212, 204, 122, 56],
         "state": "pressed", "padding": [4, 4, 4, 4], "row": "button.state", "place": {"file": "a/home.g", "line": 38},
         "styles": [{"file": "a/coffee/button.g", "line": 3}, {"file": "a/home.g", "line": 40}, {"file": "a/home.g", "line": 44}]},
        {"path": "home/box", "type": "container", "view": 2, "id": 4, "box": [200, 190, 150, 90], "state": "default",
         "styles": [{"file": "config/looks.g", "line": 3, "look": "plain"}, {"file": "config/looks.g", "line": 5, "look": "card"},
                    {"file": "config/looks.g", "line": 6, "look": "card"},
                    {"file": "config/theme/night/looks.g", "line": 2, "look": "card"}]}]})");
    view_inspector_take(&inspector, reply);
    CHECK(view_inspector_text(&inspector) ==
          "home/brew  button 10  212,204 122 x 56  pressed  theme button.g:3  styles home.g:40,44");
    CHECK(view_inspector_python(&inspector) == "panel.write(rows.BUTTON_STATE, 0, view=2, control=10)");
    s32 line = 0;
    CHECK(view_inspector_place(&inspector, &line) == "a/home.g");
    CHECK(line == 38);
    view_image_t image = view_image(400, 300, 0);
    view_inspector_draw(&inspector, &image);
    CHECK(image.pixels[204 * 400 + 211] == 0xFF4FA3); // outlines of control and parent
    CHECK(image.pixels[190 * 400 + 199] == 0x4FC3FF);
    view_inspector_next(&inspector);
    view_inspector_take(&inspector, reply); // stays on the chosen one
    CHECK(view_inspector_text(&inspector) ==
          "home/box  container 4  200,190 150 x 90  look plain looks.g:3  look card looks.g:5,6  look card "
          "night/looks.g:2");
    CHECK(view_inspector_python(&inspector) == "");
    view_inspector_next(&inspector);
    CHECK(contains(view_inspector_text(&inspector), "home/brew"));
    cJSON_Delete(reply);
    cJSON_Delete(inspector.hits);
}
