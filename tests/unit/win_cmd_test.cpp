// The command line: the build call that writes the build time into the project file.
#include "temp_project.h"

TEST_CASE("the build call replaces the build time, keeps all other keys in order, and never creates a file") {
    temp_project_t project;
    std::filesystem::create_directories(project.top + "/a/b"); // two levels below the parent of the project
    REQUIRE(chdir((project.top + "/a/b").c_str()) == 0);
    const struct {
        const char *stamp, *before, *after;
    } rows[] = {
        {"-t12:00", R"({"z": 1, "comp_time": "old", "a": [1.5, "é", null], "COMP_TIME": "other"})",
         "{\n\t\"z\":\t1,\n\t\"comp_time\":\t\"12:00\",\n\t\"a\":\t[1.5, \"é\", "
         "null],\n\t\"COMP_TIME\":\t\"other\"\n}"},
        {"-t", R"({"comp_time": {"deep": 1}})", "{\n\t\"comp_time\":\t\"\"\n}"},
        {"-", "{}", "{}"}, // too short for its switch
        {"-tnow", R"({"comp_time": "old",})", R"({"comp_time": "old",})"},
    };
    const std::string file = project.path("config/project/zofprj.g");
    char program[] = "zof_bench", word[] = "t", other[] = "x";
    const auto call = [&](char *first, std::string stamp, int count) {
        char *words[] = {program, first, stamp.data()};
        s32 result = 0;
        printed([&] { result = zof_win_cmd(count, words); });
        return result;
    };
    for (const auto &row : rows) {
        CAPTURE(row.before);
        project.write("config/project/zofprj.g", row.before);
        CHECK((call(word, row.stamp, 3) == 0 && call(other, row.stamp, 3) == 0 && call(word, row.stamp, 2) == -1));
        CHECK(file_text(file) == row.after);
    }
    CHECK(zof_win_cmd(3, nullptr) == -1);
    std::filesystem::remove(file);
    CHECK(call(word, "-tnow", 3) == 0);
    CHECK(!std::filesystem::exists(file));
}
