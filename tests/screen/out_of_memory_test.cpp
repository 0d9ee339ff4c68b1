// One allocation fails, each time in a process of its own: the start and the loading of a view complete, with less on
// the screen, or end with the status for it, and never by a signal.
#include <SDL.h>

#include <sys/wait.h>
#include <unistd.h>

#include "every_control.h"

enum { NO_PROJECT = 42 };

// The sanitizer ends with another status than the runtime does without memory.
extern "C" const char *__asan_default_options() {
    return "exitcode=99";
}

static void view_up(view_project_t &project) {
    cJSON_Hooks json = {.malloc_fn = zof_malloc, .free_fn = zof_free}; // allocations of cJSON and SDL fail too
    cJSON_InitHooks(&json);
    SDL_SetMemoryFunctions(
        zof_malloc, [](size_t n, size_t size) { return zof_malloc(n * size); }, zof_realloc, zof_free);
    project.open(640, 240);
    zof_view_set_dis_view(1);
    screen_step(50);
    zof_view_set_dis_view(2);
    zof_view_set_dis_view(1);
    screen_step(50);
    zof_theme_set("night");
    screen_step(50);
}

// How a process ends whose allocation `n` fails; with 0 none fails and *count is their number.
static int end_of(view_project_t &project, u32 n, u32 *count) {
    int pipes[2];
    REQUIRE(pipe(pipes) == 0);
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        if (!getenv("ZOF_FUZZ_LOUD") && !freopen("/dev/null", "w", stdout)) {
            _exit(99);
        }
        zof_mem_fail_at(n);
        try {
            view_up(project);
        } catch (...) { // the fixture's, for a project that could not be opened
            _exit(NO_PROJECT);
        }
        const u32 made = zof_mem_fail_at(0);
        _exit(write(pipes[1], &made, sizeof(made)) == sizeof(made) ? 0 : 98);
    }
    close(pipes[1]);
    int status = -1;
    REQUIRE(waitpid(child, &status, 0) == child);
    if (count) {
        CHECK(read(pipes[0], count, sizeof(*count)) == sizeof(*count));
    }
    close(pipes[0]);
    return status;
}

TEST_CASE("a failed allocation at the start or while a view is loaded never ends the process by a signal") {
    enum { EARLY = 100 }; // each of the first, on which the others depend; ZOF_FAILURES of the rest
    const char *given = getenv("ZOF_FAILURES");
    const u32 failures = EARLY + (given ? (u32)strtoul(given, nullptr, 0) : 100);
    view_project_t project;
    files_of_each(project);
    for (const char *theme : {"youth", "night"}) {
        project.write(form("config/theme/%s/label.g", theme), R"({"styles": [{"body_t": {"main_color": 1}}]})");
    }
    project.view(1, one_of_each(R"("pub": true)"));
    project.write("config/looks.g", R"({"colors": {"a": 7}, "looks": {"plain": {"body_t": {"main_color": "$a"}},
                                        "one": {"is": "plain", "txt_t": {"font_lib": "text.ttf"}, "pressed": {}}}})");
    project.write("config/theme/night/looks.g", R"({"looks": {"one": {"focused": {"txt_t": {"opa": 9}}}}})");
    project.view(
        2,
        {ctrl(ZOF_CTRL_LABEL, 1, R"("styles": [{"txt_t": {"font_lib": "own.ttf"}}])").insert(1, R"("look": "one", )")});
    u32 count = 0;
    REQUIRE(end_of(project, 0, &count) == 0);
    REQUIRE(count > 1000);
    u32 out_of_memory = 0;
    for (u32 i = 0; i < failures; i++) {
        const u32 n = i < EARLY ? i + 1 : EARLY + (u32)((u64)(count - EARLY) * (i - EARLY) / (failures - EARLY));
        const int status = end_of(project, n, nullptr);
        CAPTURE(n);
        CAPTURE(WTERMSIG(status));
        const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        CAPTURE(code);
        const bool ended = code == 0 || code == NO_PROJECT || code == ZOF_EXIT_FAILURE;
        CHECK(ended);
        out_of_memory += WIFEXITED(status) && WEXITSTATUS(status) == ZOF_EXIT_FAILURE;
    }
    CHECK(out_of_memory > 0);
}
