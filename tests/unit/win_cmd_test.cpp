// The build call: a build step stamps its time into the project file.
#include "temp_project.h"
#include "zof_test.h"

// Calls it as from a build folder two below the one that holds the project.
static s32 call(const temp_project_t &project, std::vector<const char *> arguments) {
    std::filesystem::create_directories(project.top + "/a/b");
    REQUIRE(chdir((project.top + "/a/b").c_str()) == 0);
    arguments.insert(arguments.begin(), "zof_bench");
    s32 result = 0;
    std::string log = printed(
        [&] { result = zof_win_cmd(static_cast<int>(arguments.size()), const_cast<char **>(arguments.data())); });
    CAPTURE(log);
    return result;
}

static const char *file = "config/project/zofprj.g";

TEST_CASE("the build call replaces the build time, and every other key stays in its place") {
    temp_project_t project;
    project.write(file, R"({"z": 1, "comp_time": "old", "a": [1.5, "é", null, true], "COMP_TIME": "other"})");
    CHECK(call(project, {"t", "-t2026-11-21 12:00"}) == 0);
    const char *stamped =
        "{\n\t\"z\":\t1,\n\t\"comp_time\":\t\"2026-11-21 12:00\",\n\t\"a\":\t[1.5, \"é\", null, true],\n"
        "\t\"COMP_TIME\":\t\"other\"\n}";
    CHECK(file_text(project.path(file)) == stamped);
    // In another case it is another key; what is no text is replaced; a stamp of nothing is an empty one.
    project.write(file, R"({"COMP_TIME": "other", "b": 1})");
    CHECK(call(project, {"t", "-t1"}) == 0);
    CHECK(file_text(project.path(file)) == "{\n\t\"COMP_TIME\":\t\"other\",\n\t\"b\":\t1,\n\t\"comp_time\":\t\"1\"\n}");
    project.write(file, R"({"comp_time": {"deep": 1}})");
    CHECK(call(project, {"t", "-t"}) == 0);
    CHECK(file_text(project.path(file)) == "{\n\t\"comp_time\":\t\"\"\n}");
}

TEST_CASE("the build call leaves alone what it cannot read, and makes no file") {
    temp_project_t project;
    for (const char *text : {R"({"comp_time": "old",})", "[1, 2]", ""}) {
        project.write(file, text);
        CHECK(call(project, {"t", "-tnow"}) == 0);
        CHECK(file_text(project.path(file)) == text);
    }
    project.write(file, "{}");
    CHECK(call(project, {"t", "-"}) == 0); // too short for its switch
    CHECK(call(project, {"x", "-tnow"}) == 0);
    CHECK(file_text(project.path(file)) == "{}");
    CHECK(call(project, {"t"}) == -1);
    CHECK(zof_win_cmd(3, nullptr) == -1);
    std::filesystem::remove(project.path(file));
    CHECK(call(project, {"t", "-tnow"}) == 0);
    CHECK(!std::filesystem::exists(project.path(file)));
}
