// The player as its parent processes see it: driven by lines, drawing into shared memory.
#include <sys/stat.h>

#include <map>

#include "host_frame.h"
#include "serial_pty.h"
#include "temp_project.h"
#include "view_player.h"

static std::string printed_json(const cJSON *value) {
    char *text = cJSON_PrintUnformatted(value);
    const std::string out = str(text);
    cJSON_free(text);
    return out;
}

// A running player, and what it has sent.
struct player {
    view_player_t process;
    std::string events;

    explicit player(bool live = false) {
        setenv("ZOF_PLAYER", ZOF_BUILD_DIR "/tools/zof_player", 1);
        REQUIRE(view_player_start(&process, live, false) == "");
    }
    // Lets it end by itself, so that a coverage build counts its lines.
    ~player() {
        say(R"({"do": "quit"})");
        std::string how;
        if (process.child.process) {
            child_end(&process.child, &how);
        }
        view_player_stop(&process);
    }

    // Sends a command and returns its reply as text; what is not JSON is sent as it is.
    std::string say(const std::string &line) {
        cJSON *command = cJSON_Parse(line.c_str());
        cJSON *reply = view_player_call(&process, command ? command : cJSON_CreateObject(),
                                        [this](const cJSON *event) { events += printed_json(event) + "\n"; });
        const std::string out = reply ? printed_json(reply) : "no reply: " + process.ended;
        cJSON_Delete(reply);
        return out;
    }

    void load(const temp_project_t &project, const std::string &more = "") {
        REQUIRE(contains(say(R"({"do": "load", "dir": ")" + project.folder + "\"" + more + "}"), "\"ok\":true"));
    }

    std::vector<u32> picture() {
        std::vector<u32> pixels;
        s32 w = 0;
        s32 h = 0;
        CHECK(view_player_picture(&process, &pixels, &w, &h));
        return pixels;
    }
};

static const char head[] = R"({"view": {"v_name": "v", "v_id": %, "bg_scale": 255, "bg_color": %000}, "controls": [)";

static std::string control(u32 type, u32 id, const std::string &name, const std::string &more,
                           const std::string &pub = "") {
    return R"({"type": )" + std::to_string(type) + R"(, "theme": "night", "property": {"pub_t": {"name": ")" + name +
           R"(", "id": )" + std::to_string(id) + R"(, "pt": {"x": 10, "y": )" + std::to_string(id * 40 - 30) +
           R"(}, "size": {"width": 100, "height": 30}, "alpha": 255, "t_mode": 1)" + pub + "}" + more + "}}";
}

static std::string view(u32 id, const std::string &controls) {
    std::string text = head;
    for (size_t at = 0; (at = text.find('%')) != std::string::npos;) {
        text.replace(at, 1, std::to_string(id));
    }
    return text + controls + "]}";
}

// Two views, two languages, a theme, and a name on a drive.
static void project_write(const temp_project_t &project) {
    project.write("config/project/zofprj.g", R"({"p_name": "test", "width": 200, "height": 160, "start_page": 1,
        "language": "en", "hw_t": {"touch_t": {"th_en": 1}},
        "views": [{"pageId": 1, "pageName": "home.g"}, {"pageId": 2, "pageName": "more.g"}]})");
    project.write("config/view/home.g", view(1, control(0, 1, "title", R"(, "txt": "#hello")") + ",\n" +
                                                    control(1, 2, "go", R"(, "txt": "Go", "styles": [{"body_t":
                                                    {"main_color": 255, "opa": 255}}])") +
                                                    ",\n" + control(3, 3, "", R"(, "img_rel": "D:x.png")")));
    project.write("config/view/more.g", view(2, control(7, 1, "level", R"(, "min": 0, "max": 100)") + "," +
                                                    control(2, 2, "box", "", R"(, "scrollbar_t": {"dir_e": 15})") +
                                                    "," + control(0, 3, "far", "", R"(, "parent_id": 2)")));
    project.write("config/languages/en.g", R"({"hello": "Hello"})");
    project.write("config/languages/de.g", R"({"hello": "Hallo"})");
    project.write("config/theme/night/button.g", R"({"styles": [{"txt_t": {"color": 65280, "opa": 255}}]})");
}

// Every file and folder, with its size and time.
static std::map<std::string, std::string> listing(const std::string &folder) {
    std::map<std::string, std::string> out;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        struct stat st = {};
        stat(entry.path().c_str(), &st);
        out[entry.path()] =
            std::to_string(st.st_size) + " " + std::to_string(st.st_mtim.tv_nsec) + " " + std::to_string(st.st_mode);
    }
    return out;
}

TEST_CASE("the tree names the source of each style: theme, look and its base, the view") {
    temp_project_t project;
    project_write(project);
    std::string home = file_text(project.path("config/view/home.g"));
    home.insert(home.find("{\"type\": 0") + 1, R"("look": "head", )");
    project.write("config/view/home.g", home);
    project.write("config/looks.g", "{\"looks\": {\"plain\": {\"txt_t\": {\"opa\": 255}},\n"
                                    "\"head\": {\"is\": \"plain\", \"body_t\": {},\n\"items:pressed\": {}}}}");
    project.write("config/theme/night/looks.g", R"({"looks": {"head": {"txt_t": {"color": 255}}}})");
    player p;
    p.load(project);
    std::string tree = p.say(R"({"do": "tree", "view": "home"})");
    for (size_t at; (at = tree.find(project.folder)) != tree.npos;) {
        tree.erase(at, project.folder.size());
    }
    CHECK(contains(tree,
                   R"([{"file":"config/looks.g","line":1,"column":21,"part":0,"state":0,"look":"plain"},)"
                   R"({"file":"config/looks.g","line":2,"column":9,"part":0,"state":0,"look":"head"},)"
                   R"({"file":"config/looks.g","line":3,"column":18,"part":327680,"state":32,"look":"head"},)"
                   R"({"file":"config/theme/night/looks.g","line":1,"column":20,"part":0,"state":0,"look":"head"}])"));
    CHECK(contains(tree, R"([{"file":"config/theme/night/button.g","line":1,"column":13,"part":0,"state":0},)"
                         R"({"file":"config/view/home.g",)"));
}

TEST_CASE("a player answers every invalid line with an error and continues") {
    temp_project_t project;
    project_write(project);
    player p;
    const std::pair<const char *, const char *> early[] = {
        {"no JSON", "must name a command"},
        {R"({"do": 3})", "must name a command"},
        {R"({"do": "dance"})", "there is no command dance"},
        {R"({"do": "show", "view": "home"})", "no project is loaded"},
        {R"({"do": "load"})", "load needs dir"},
        {R"({"do": "load", "dir": "/nowhere"})", "/nowhere: no config/project/zofprj.g"},
        {R"({"do": "load", "dir": 7})", "dir must be a text"},
    };
    for (const auto &[line, error] : early) {
        CAPTURE(line);
        CHECK(contains(p.say(line), error));
    }
    p.load(project);
    const std::pair<const char *, const char *> rows[] = {
        {R"({"do": "load", "dir": "/nowhere"})", "loaded before"},
        {R"({"do": "show", "view": "hone"})", "there is no view hone; did you mean home?"},
        {R"({"do": "show", "view": 3})", "there is no view of this number"},
        {R"({"do": "show", "view": "home", "colour": 1})", "show has no argument colour"},
        {R"({"do": "show", "language": "../en"})", "there is no language ../en"},
        {R"({"do": "show", "theme": "none"})", "there is no theme none"},
        {R"({"do": "state", "control": "home/none", "state": "pressed"})", "there is no control home/none"},
        {R"({"do": "state", "control": "home/go", "state": "sad"})", "state must be a sum"},
        {R"({"do": "advance", "ms": -1})", "ms must be"},
        {R"({"do": "advance", "ms": 1e300})", "ms must be"},
        {R"({"do": "picture", "file": "/nowhere/x.png"})", "cannot be written"},
        {R"({"do": "set", "row": "label.none", "value": 1})", "there is no row label.none"},
        {R"({"do": "set", "row": "system.tone", "value": 1})", "there is no row system.tone"},
        {R"({"do": "set", "row": "label.text", "control": "go", "value": 1})", "there is no control go"},
        {R"({"do": "set", "row": "label.text", "control": "home/title", "value": 1})", "value 1 is of a wrong kind"},
        {R"({"do": "set", "row": "slider.value", "control": "more/level", "value": [1, 2]})", "needs 1 values"},
        {R"({"do": "set", "row": "slider.value", "control": "more/level", "value": 1e10})", "out of range"},
        {R"({"do": "link"})", "time is not real"},
        {R"({"do": "restore", "state": 1})", "state must be an object"},
        {R"({"do": "tree", "view": "none"})", "there is no view none"},
        {R"({"do": "picture", "file": 3})", "file must be a text"},
        {R"({"do": "scroll", "control": "home/none", "x": 0, "y": 0})", "there is no control home/none"},
    };
    for (const auto &[line, error] : rows) {
        CAPTURE(line);
        CHECK(contains(p.say(line), error));
    }
    p.process.unsent = std::string(2 << 20, 'x') + "\n";
    CHECK(contains(p.say(R"({"do": "help"})"), "\"ok\":true"));
    CHECK(contains(p.events, "the line is too long"));
    CHECK(p.say(R"({"do": "quit"})") == R"({"id":32,"ok":true})");
}

TEST_CASE("a player never changes the project, and draws the same each time") {
    temp_project_t project;
    project_write(project);
    const auto before = listing(project.top);
    std::string replies[2];
    std::vector<u32> pictures[2];
    for (int i = 0; i < 2; i++) {
        player p;
        p.load(project, R"(, "view": "home", "language": "de", "theme": "night")");
        const std::vector<u32> first = p.picture();
        CHECK(first.size() == 200 * 160);
        replies[i] = p.say(R"({"do": "tree"})");
        CHECK(contains(replies[i], R"("text":"Hallo")"));
        CHECK(contains(replies[i], R"("path":"home/#3")"));
        CHECK(contains(replies[i], "home.g\",\"line\":2,\"column\":1,\"key\":\"controls["));
        CHECK(contains(replies[i], "night/button.g\",\"line\":1,\"column\":13,\"part\":0"));
        replies[i] += p.say(R"({"do": "review"})");
        CHECK(p.picture() == first);
        p.say(R"({"do": "pointer", "x": 60, "y": 60, "down": true})");
        p.events.clear();
        p.say(R"({"do": "advance", "ms": 300})");
        CHECK(contains(p.say(R"({"do": "hit", "x": 60, "y": 60})"), R"(pressed","visible":true)"));
        CHECK(contains(p.events, R"({"event":"frame","number")"));
        CHECK(!contains(p.events, "\"event\":\"view\""));
        pictures[i] = p.picture();
        CHECK(pictures[i] != first);
        p.say(R"({"do": "pointer", "x": 60, "y": 60, "down": false})");
        p.say(R"({"do": "advance", "ms": 1000})");
        p.say(R"({"do": "state", "control": "home/go", "state": "pressed"})");
        p.say(R"({"do": "show", "view": "more"})");
        CHECK(contains(p.events, R"({"event":"view","view":"more"})"));
        replies[i] += p.events;
    }
    CHECK(replies[0] == replies[1]);
    CHECK(pictures[0] == pictures[1]);
    CHECK(listing(project.top) == before);
}

TEST_CASE("a new player takes over what the previous one showed, and what a host wrote to it") {
    temp_project_t project;
    project_write(project);
    project.write(
        "config/project/zofhmi.g",
        R"({"hmi_en": 1, "uart": {"win_port": 7, "speed_e": 6, "bit_e": 1}, "head_fh": 90, "head_fl": 165, "buffsize": 1024, "timeout": 5})");
    serial_pty host;
    pty_open(host, 7);
    player p(true);
    p.load(project, R"(, "view": "more", "language": "de", "theme": "night")");
    CHECK(contains(p.say(R"({"do": "link"})"), "\"ok\":true"));
    p.say(R"({"do": "set", "row": "label.text", "control": "home/title", "value": "Servus"})");
    CHECK(contains(p.say(R"({"do": "tree", "view": "home"})"), R"("text":"Servus")")); // not shown, but loaded
    p.say(R"({"do": "set", "row": "view.display", "value": 2})");
    p.say(R"({"do": "set", "row": "view.bg_image", "request": 0, "value": [2, "none.png"]})");
    p.say(R"({"do": "scroll", "control": "more/box", "x": 3, "y": 5})");
    std::string state;
    pty_write(host, frame_of(0x22, {0xB2, 0x07, 0x01, 0, 2, 0, 1, 0, 33})); // the slider's value
    CHECK(eventually([&] {
        state = p.say(R"({"do": "snapshot"})");
        return contains(state, R"("row":"slider.value","control":"more/level","value":[33])");
    }));
    CHECK(contains(state, R"("views":["more"])"));
    CHECK(contains(state, R"("value":["Servus"])"));
    CHECK(contains(state, R"("row":"view.bg_image","request":[0],"value":[2,"none.png"])"));
    CHECK(contains(state, R"("scrolls":[{"control":"more/box","x":3,"y":5}])"));
    CHECK(!contains(state, "view.display"));
    CHECK(contains(p.say(R"({"do": "advance", "ms": 1})"), "time is real"));
    const std::vector<u32> shown = p.picture();

    const size_t at = state.find("\"state\":") + 8;
    player next;
    const std::string kept = state.substr(at, state.rfind(",\"ok\"") - at);
    next.load(project, ", \"state\": " + kept);
    CHECK(next.picture() == shown);
    CHECK(contains(next.say(R"({"do": "snapshot"})"), kept));
    next.say(R"({"do": "show", "view": "home"})");
    CHECK(contains(next.say(R"({"do": "tree"})"), R"("text":"Servus")"));
}

TEST_CASE("a view that is shown alone is not covered by one that was shown on another layer before") {
    temp_project_t project;
    project_write(project);
    std::string more = file_text(project.path("config/view/more.g"));
    project.write("config/view/more.g", more.replace(more.find("\"v_id\""), 0, R"("layer": "top", )"));
    player p;
    p.load(project);
    const std::vector<u32> home = p.picture();
    p.say(R"({"do": "show", "view": "more"})");
    CHECK(p.picture() != home);
    p.say(R"({"do": "show", "view": "home", "alone": true})");
    CHECK(p.picture() == home);
    CHECK(contains(p.say(R"({"do": "snapshot"})"), R"("views":["home"])"));

    player next; // what it was told to restore was not shown by a program either
    next.load(project, R"(, "state": {"views": ["more", "home"]})");
    CHECK(next.picture() != home);
    next.say(R"({"do": "show", "view": "home", "alone": true})");
    CHECK(next.picture() == home);
}

TEST_CASE("faults in files are reported with their position and what was expected there") {
    temp_project_t project;
    project_write(project);
    project.write("config/view/more.g", "{\"view\": {\"v_id\": 2}\n \"controls\": []}");
    player p;
    p.load(project);
    CHECK(contains(p.say(R"({"do": "show", "view": "more"})"), "cannot be shown"));
    CHECK(contains(p.events, "more.g\",\"line\":2,\"column\":2,\"key\":\"\",\"text\":\"expected \\\",\\\""));
    project.write("config/project/zofprj.g", "{");
    player broken;
    CHECK(contains(broken.say(R"({"do": "load", "dir": ")" + project.top + "\"}"), "cannot be read"));
}

// Returns splices that replace `count` random numbers in a text, as JSON.
static std::string random_splices(const std::string &text, s32 count, u32 *seed) {
    static constexpr const char *keys[] = {"\"x\": ", "\"y\": ", "\"width\": ", "\"height\": ", "_color\": "};
    std::string out;
    for (s32 i = 0; i < count; i++) {
        size_t at = std::string::npos;
        while (at == std::string::npos) {
            *seed = *seed * 1664525 + 1013904223;
            const std::string key = keys[(*seed >> 8) % std::size(keys)];
            at = text.find(key, (*seed >> 10) % text.size());
            at = at == std::string::npos ? at : at + key.size();
        }
        const size_t end = text.find_first_not_of("-0123456789", at);
        const bool number = end > at && end - at < 4; // of the same length, so that the places stay
        const std::string with = number ? std::to_string(*seed >> 4).substr(0, end - at) : text.substr(at, end - at);
        out += (i ? ", [" : "[") + std::to_string(at) + ", " + std::to_string(end) + ", \"" + with + "\"]";
    }
    return out;
}

TEST_CASE("a view that is edited in place looks as a fresh player draws it, for all types, and again as on the disk") {
    const std::string folder = ZOF_GALLERY_DIR "/res";
    const std::string load = R"({"do": "load", "dir": ")" + folder + "\"}";
    player kept;
    u32 seed = 7;
    cJSON *project = cJSON_Parse(kept.say(load).c_str());
    const cJSON *view = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItem(project, "views")) {
        const std::string name = str(cJSON_GetObjectItem(view, "name")->valuestring);
        const std::string file = R"({"do": "edit", "file": "config/view/)" + name + ".g\"";
        const std::string show = R"({"do": "show", "alone": 1, "view": ")" + name + "\"}";
        const std::string splices = random_splices(file_text(folder + "/config/view/" + name + ".g"), 6, &seed);
        INFO(name << ": " << splices);
        kept.say(show);
        const std::vector<u32> before = kept.picture();
        CHECK(contains(kept.say(file + ", \"splices\": [" + splices + "]}"), "\"ok\":true"));

        player fresh;
        fresh.say(R"({"do": "load", "view": ")" + std::string(name == "index" ? "labels" : "index") + R"(", "dir": ")" +
                  folder + "\"}");
        fresh.say(file + ", \"splices\": [" + splices + "]}");
        fresh.say(show);
        CHECK(kept.picture() == fresh.picture());
        kept.say(file + "}");
        CHECK(kept.picture() == before);
    }
    cJSON_Delete(project);
    CHECK(contains(kept.say(R"({"do": "edit", "file": "config/view/index.g", "splices": [[0, 1, "?"]]})"),
                   "\"ok\":false"));
    CHECK(contains(kept.say(R"({"do": "edit", "file": "config/view/index.g", "splices": [[0, 1e9, ""]]})"), "splices"));
    CHECK(contains(kept.say(R"({"do": "edit", "file": "config/project/zofprj.g"})"), "must be a view"));
}

TEST_CASE("the manual lists the player's commands as they are") {
    player p;
    const std::string manual = file_text(ZOF_SOURCE_DIR "/docs/player.md");
    cJSON *reply = cJSON_Parse(p.say(R"({"do": "help"})").c_str());
    const cJSON *row = nullptr;
    cJSON_ArrayForEach(row, cJSON_GetObjectItem(reply, "commands")) {
        const std::string args = cJSON_GetObjectItem(row, "args")->valuestring;
        CHECK(contains(manual, "\n| `" + str(cJSON_GetObjectItem(row, "do")->valuestring) + "` | " + args +
                                   (args.empty() ? "| " : " | ") + str(cJSON_GetObjectItem(row, "needs")->valuestring) +
                                   " | " + str(cJSON_GetObjectItem(row, "help")->valuestring) + " |\n"));
    }
    CHECK(cJSON_GetArraySize(cJSON_GetObjectItem(reply, "commands")) == 21);
    cJSON_Delete(reply);
}
