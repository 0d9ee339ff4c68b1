// Languages: looking texts up, changing them, and writing them back.
#include "port/zof_host.h"
#include "temp_project.h"

static const char *two = R"({"hello": "Hello", "Bye": "Good bye", "number": 5, "": "empty key"})";

static std::string shown(const char *text) {
    return str(zof_lang_get_cur_str(text));
}

// English is the current language; German exists as well.
struct lang_project : temp_project_t {
    std::string file = path("config/languages/en.g");
    lang_project() {
        write("config/project/zofprj.g", R"({"language": "en", "views": []})");
        write("config/languages/en.g", two);
        write("config/languages/de.g", R"({"hello": "Hallo"})");
        REQUIRE(open());
    }
};

TEST_CASE("a language that cannot be loaded leaves no current language") {
    temp_project_t none;
    CHECK(zof_lang_set("en") == -1); // no project
    lang_project project;
    project.write("config/languages/bad.g", "{\"hello\": \"a\",\n  \"bye\" 5}");
    project.write("config/languages/list.g", "[1]");
    const std::pair<const char *, const char *> rows[] = {
        {"none", "languages/none.g: cannot be read"},
        {"bad", "languages/bad.g:2:9: "},
        {"list", "languages/list.g:1:1: "},
        {"../../a name that is too long for the buffer of its path", "name too long"}};
    for (const auto &[name, line] : rows) {
        CAPTURE(name);
        CHECK(zof_lang_set("en") == 0);
        CHECK(contains(printed([name = name] { CHECK(zof_lang_set(name) == -1); }), line));
        CHECK(shown("#hello") == "#hello");
        CHECK(zof_lang_set_cur_str("#hello", "x") == 0);
        CHECK(zof_lang_save_cur_to_flash() == 0);
    }
    CHECK(zof_lang_set(nullptr) == -1);
    CHECK(str(zof_prj_get_cur()->lang_name) == "en");
}

TEST_CASE("keys of a large table are found in any case, and the first of equal keys is used") {
    lang_project project;
    enum { KEYS = 5000 };
    std::string text = R"({"same": "first", "SAME": "second")";
    for (int i = 0; i < KEYS; i++) {
        text += ", \"Key" + std::to_string(i) + "\": \"" + std::to_string(i) + "\"";
    }
    project.write("config/languages/large.g", text + "}");
    project.write("config/languages/none.g", "{}");
    for (const u32 fail_at : {0u, 1u}) { // without memory for the index too
        CHECK(zof_lang_set("large") == 0);
        zof_mem_fail_at(fail_at);
        for (int i = 0; i < KEYS; i += fail_at ? 499 : 1) {
            CHECK(shown(("#kEY" + std::to_string(i)).c_str()) == std::to_string(i));
        }
        zof_mem_fail_at(0);
        CHECK(shown("#Same") == "first");
        CHECK(shown("#Key") == "#Key");
        CHECK(zof_lang_set("none") == 0);
        CHECK(shown("#same") == "#same");
    }
}

TEST_CASE("changed texts take effect immediately, and are saved whole or not at all, outside the project") {
    lang_project project;
    const std::string state = project.top + "/state", kept = state + "/languages/en.g";
    setenv("ZOF_STATE", state.c_str(), 1);
    CHECK(shown("#HELLO") + shown("#number") + shown("hello") + shown("#") == "Hello#numberhelloempty key");
    CHECK(zof_lang_set_cur_str("#hello", std::string(255, 'x').c_str()) == 0);
    CHECK(zof_lang_set_cur_str("#hello", std::string(256, 'y').c_str()) == 0);
    CHECK(shown("#hello") == std::string(255, 'x'));
    CHECK(zof_lang_set_cur_str("#Bye", zof_lang_get_cur_str("#bye") + 5) == 0); // part of the text itself
    CHECK(shown("#bye") == "bye");
    zof_file_fault_set([](const char *what, const char *) -> zof_bool { return std::string(what) == "write"; });
    CHECK(contains(printed([] { CHECK(zof_lang_save_cur_to_flash() == -1); }), "create json fail!"));
    CHECK(!std::filesystem::exists(kept));
    zof_file_fault_set(nullptr);
    CHECK(zof_lang_set_cur_str("#hello", "Hello") == 0); // as in the project
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(file_text(kept) == "{\n\t\"Bye\":\t\"bye\"\n}");
    std::filesystem::remove(kept);
    CHECK(zof_lang_save_cur_to_flash() == 1); // nothing is left to write
    CHECK(!std::filesystem::exists(kept));
    std::ofstream(kept) << R"({"Bye": "kept", "gone": "x", "number": "y", "": 3})";
    CHECK(zof_lang_set("en") == 0);
    CHECK(shown("#bye") + shown("#gone") + shown("#number") == "kept#gone#number");
    CHECK(zof_lang_set_cur_str("#hello", "de") == 0); // the new name may be a text of the old language
    std::string said = printed([] { CHECK(zof_lang_set(zof_lang_get_cur_str("#hello")) == 0); });
    CHECK(contains(said, "language en: unsaved changes"));
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(file_text(project.path("config/languages/de.g")) == R"({"hello": "Hallo"})");
    CHECK(file_text(project.file) == two);
    CHECK(zof_lang_set(zof_prj_get_cur()->lang_name) == 0); // the name stored in the project
    CHECK(shown("#hello") == "Hallo");
}

TEST_CASE("names of icons in texts and translations are shown as letters, and nothing else between colons is") {
    lang_project project;
    project.write("config/icons.g", R"({"cup": "U+E001", "a": "U+10FFFF", "bad": "E002", "none": 5})");
    project.write("config/languages/en.g", R"({"brew": ":cup: Brew"})");
    const std::string log = printed([&] { REQUIRE(project.open()); });
    CHECK(contains(log, "icons.g:1:36: bad: expected a letter as \"U+E000\""));
    for (const auto &[text, wanted] :
         std::vector<std::pair<const char *, const char *>>{{"#brew", "\uE001 Brew"},
                                                            {":CUP::cup:", "\uE001\uE001"},
                                                            {"::a::a:", ":\U0010FFFF\U0010FFFF"},
                                                            {"12:30:45 :cup", "12:30:45 :cup"},
                                                            {":bad: :tea: ::", ":bad: :tea: ::"},
                                                            {"a:cup:b:", "a\uE001b:"}}) {
        CHECK(shown(text) == wanted);
    }
    const char *first = zof_lang_get_cur_str(":cup:"), *second = zof_lang_get_cur_str(":a:");
    CHECK((str(first) == "\uE001" && str(second) == "\U0010FFFF"));
}
