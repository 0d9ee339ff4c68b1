// The window of `zof view`. It shows the picture of a player, forwards pointer and keys, and draws the inspector and a
// band with the current error over the panel.
#include <SDL.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "drv/zof_drv.h"
#include "port/win_fit.h"
#include "view.h"
#include "view_inspector.h"
#include "view_session.h"
#include "zof.h"

enum { STEP_MS = 8, START_W = 480, START_H = 272 };
enum : u32 { GRAVE = 0xB3261E, HINT = 0x8A5A00 };

static struct {
    SDL_Window *window;
    view_session_t session;
    view_inspector_t inspector;
    std::string title;
    s32 w, h;  // size of the last picture
    u32 loads; // the session's count when the inspector last asked
    bool closed, stale;
} self;

static std::string member(const char *name) {
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItem(self.session.project, name));
    return text ? text : "";
}

// Returns the panel's picture with the overlays.
static view_image_t composed() {
    view_image_t image = self.session.picture;
    if (image.pixels.empty()) {
        image = view_image(START_W, START_H, 0);
    }
    if (self.inspector.on) {
        view_inspector_draw(&self.inspector, &image);
    }
    if (!self.session.note.empty()) {
        view_band_draw(&image, self.session.note, self.session.note_grave ? GRAVE : HINT, false);
    }
    return image;
}

static void window_resize(s32 w, s32 h) {
    if (w != self.w || h != self.h) {
        SDL_SetWindowSize(self.window, w, h);
        self.w = w;
        self.h = h;
    }
}

// Opens the window with the first picture, because a window that grows later would not be centred on the screen.
static void window_open(const view_image_t *image) {
    self.w = image->width;
    self.h = image->height;
    self.window = SDL_CreateWindow("zof view", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, self.w, self.h,
                                   SDL_WINDOW_RESIZABLE);
}

static void draw() {
    const view_session_t *session = &self.session;
    if (session->port && session->picture.pixels.empty() && session->note.empty()) {
        return; // the program has yet to send its first picture
    }
    const view_image_t image = composed();
    if (!self.window) {
        window_open(&image);
    }
    window_resize(image.width, image.height);
    SDL_Surface *surface = self.window ? SDL_GetWindowSurface(self.window) : nullptr;
    if (!surface) {
        return;
    }
    view_image_t scaled = view_image(surface->w, surface->h, 0);
    view_copy(&scaled, {0, 0, surface->w, surface->h}, image);
    SDL_Surface *from = SDL_CreateRGBSurfaceWithFormatFrom(scaled.pixels.data(), scaled.width, scaled.height, 32,
                                                           scaled.width * 4, SDL_PIXELFORMAT_RGB888);
    SDL_BlitSurface(from, nullptr, surface, nullptr);
    SDL_FreeSurface(from);
    SDL_UpdateWindowSurface(self.window);
}

static void title_update() {
    std::string title = member("name") + " - " + member("view");
    for (const char *name : {"language", "theme"}) {
        title += member(name).empty() ? "" : " - " + member(name);
    }
    if (self.window && self.session.project && title != self.title) {
        SDL_SetWindowTitle(self.window, title.c_str());
        self.title = title;
    }
}

// Selects the next or previous item in a list of the project. All lists wrap around.
static void step(const char *array, const char *of, const char *key, s32 by) {
    const std::vector<std::string> all = view_texts(self.session.project, array, of);
    if (all.empty()) {
        return;
    }
    const size_t at = (size_t)(std::find(all.begin(), all.end(), member(key)) - all.begin());
    const size_t count = all.size();
    const std::string &chosen = all[at == count ? 0 : (at + count + (size_t)by) % count];
    cJSON *command = view_command("show");
    cJSON_AddStringToObject(command, key, chosen.c_str());
    cJSON_AddBoolToObject(command, "alone", strcmp(key, "view") == 0);
    view_session_send(&self.session, command);
    cJSON_ReplaceItemInObject(self.session.project, key, cJSON_CreateString(chosen.c_str()));
}

static void hit_ask() {
    view_inspector_t *inspector = &self.inspector;
    if (self.loads != self.session.loads) {
        self.loads = self.session.loads;
        inspector->hit_id = 0; // the player that was asked has ended
    }
    if (!inspector->on || !inspector->moved || inspector->hit_id) {
        return;
    }
    cJSON *command = view_command("hit");
    cJSON_AddNumberToObject(command, "x", inspector->x);
    cJSON_AddNumberToObject(command, "y", inspector->y);
    inspector->hit_id = view_session_send(&self.session, command);
    inspector->moved = false;
}

static void line_take(const cJSON *line) {
    const char *view = cJSON_GetStringValue(cJSON_GetObjectItem(line, "view"));
    if (view && self.session.project) {
        cJSON_ReplaceItemInObject(self.session.project, "view", cJSON_CreateString(view));
    }
    const cJSON *id = cJSON_GetObjectItem(line, "id");
    if (cJSON_IsNumber(id) && id->valueint == self.inspector.hit_id) {
        view_inspector_take(&self.inspector, line);
        self.stale = true;
    }
}

static void editor_open() {
    s32 line = 0;
    const std::string file = view_inspector_place(&self.inspector, &line);
    const char *editor = getenv("EDITOR");
    if (file.empty() || !editor || !*editor) {
        fprintf(stderr, "zof view: %s\n", file.empty() ? "the place is not known" : "EDITOR is not set");
        return;
    }
    editor_start(editor, file, line);
}

static void python_copy() {
    const std::string line = view_inspector_python(&self.inspector);
    if (!line.empty()) {
        SDL_SetClipboardText(line.c_str());
        printf("%s\n", line.c_str());
        fflush(stdout);
    }
}

static void inspector_toggle() {
    self.inspector.on = !self.inspector.on;
    self.inspector.moved = true;
    self.stale = true;
}

static void inspector_next() {
    view_inspector_next(&self.inspector);
    self.stale = true;
}

static const struct {
    SDL_Keycode key;
    bool inspector; // active only while the inspector is on
    void (*run)();
} keys[] = {
    {SDLK_PAGEDOWN, false, [] { step("views", "name", "view", 1); }},
    {SDLK_PAGEUP, false, [] { step("views", "name", "view", -1); }},
    {SDLK_l, false, [] { step("languages", nullptr, "language", 1); }},
    {SDLK_t, false, [] { step("themes", nullptr, "theme", 1); }},
    {SDLK_F2, false, inspector_toggle},
    {SDLK_TAB, true, inspector_next},
    {SDLK_RETURN, true, editor_open},
    {SDLK_c, true, python_copy},
};

static void key_event(const SDL_KeyboardEvent *event) {
    const bool down = event->type == SDL_KEYDOWN;
    for (const auto &row : keys) {
        if (row.key == event->keysym.sym && (self.inspector.on || !row.inspector)) {
            if (down) {
                row.run();
            }
            return;
        }
    }
    cJSON *command = view_command("key");
    cJSON_AddNumberToObject(command, "key", event->keysym.sym);
    cJSON_AddBoolToObject(command, "down", down);
    view_session_send(&self.session, command);
}

static void pointer_event(s32 x, s32 y, bool down) {
    s32 w = 0;
    s32 h = 0;
    SDL_GetWindowSize(self.window, &w, &h);
    const win_fit_t fit = win_fit_make(self.w, self.h, w, h);
    win_fit_pixel(&fit, x, y, &self.inspector.x, &self.inspector.y);
    self.inspector.moved = true;
    cJSON *command = view_command("pointer");
    cJSON_AddNumberToObject(command, "x", self.inspector.x);
    cJSON_AddNumberToObject(command, "y", self.inspector.y);
    cJSON_AddBoolToObject(command, "down", down);
    view_session_send(&self.session, command);
}

static void event_take(const SDL_Event *event) {
    switch (event->type) {
    case SDL_QUIT:
        self.closed = true;
        break;
    case SDL_MOUSEMOTION:
        pointer_event(event->motion.x, event->motion.y, (event->motion.state & SDL_BUTTON_LMASK) != 0);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        if (event->button.button == SDL_BUTTON_LEFT) {
            pointer_event(event->button.x, event->button.y, event->type == SDL_MOUSEBUTTONDOWN);
        }
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        if (!event->key.repeat) {
            key_event(&event->key);
        }
        break;
    case SDL_WINDOWEVENT:
        self.stale = true;
        break;
    default:
        break;
    }
}

static bool session_start() {
    self.session.dir = view_options.dir;
    self.session.port = view_options.port;
    self.session.live = !view_options.port;
    self.session.loud = view_options.loud;
    self.session.first = view_command("load");
    self.session.tell = line_take;
    view_choice_add(self.session.first);
    const std::string fault = view_session_start(&self.session, view_options.watch);
    if (!fault.empty()) {
        fprintf(stderr, "zof view: %s\n", fault.c_str());
    }
    return fault.empty();
}

// Also prints the current error, so that it can be copied.
static void note_print() {
    static std::string printed;
    if (self.session.note != printed) {
        printed = self.session.note;
        fprintf(stderr, "%s%s", printed.c_str(), printed.empty() ? "" : "\n");
    }
}

static void turn() {
    view_session_step(&self.session, STEP_MS);
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        event_take(&event);
    }
    hit_ask();
    if (self.session.drawn) {
        self.session.drawn = false;
        self.inspector.moved = true;
        self.stale = true;
        note_print();
    }
    if (self.stale) {
        self.stale = false;
        draw();
        title_update();
    }
}

// Initialises SDL. Returns false without a display: SDL may then choose a driver that draws in memory, which nobody can
// see or close.
static bool display_open() {
    const char *asked = SDL_getenv("SDL_VIDEODRIVER");
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        return false;
    }
    const std::string driver = SDL_GetCurrentVideoDriver();
    return (driver != "offscreen" && driver != "dummy") || (asked && asked == driver);
}

int view_window_run() {
    if (!display_open()) {
        fprintf(stderr, "zof view: there is no display; --shot, --sheet and --tree work without a display\n");
        return ZOF_EXIT_DISPLAY;
    }
    if (!session_start()) {
        return ZOF_EXIT_UNREADABLE;
    }
    while (!self.closed && (view_options.watch || self.session.load_id || self.session.project)) {
        turn();
    }
    const bool shown = self.session.project != nullptr;
    view_session_stop(&self.session);
    SDL_Quit();
    return shown ? ZOF_EXIT_CLEAN : ZOF_EXIT_UNREADABLE;
}
