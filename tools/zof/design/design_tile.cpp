// Views that are drawn beside the canvas, by a player of their own, one after the other: for small pictures of views
// and controls, and to measure texts.
#include <algorithm>
#include <cmath>
#include <deque>
#include <filesystem>

#include "design_frame.h"
#include "design_in.h"
#include "view_draw.h"

enum { SIDE_MAX = 2048, QUEUE_MAX = 1000 };

struct tile_t {
    design_request_t request; // page 0 for a review
    cJSON *args;
    std::string folder;      // a project that is drawn once and removed then; empty for the one that is open
    cJSON *reply;            // with which its request is answered
    design_review_fn review; // gets the player's reply to `review`, null after a failure; empty for a picture
};

static struct {
    view_player_t player;
    std::deque<tile_t> queue; // the first one is being drawn if `last_id` is not 0
    s32 load_id, edit_id, tree_id, last_id;
    view_box_t box;     // of the control in the picture; empty for the whole view, or if it cannot be seen
    std::string loaded; // the folder of the project that the player has loaded, as in a tile
    bool outdated;      // it has to be loaded again
} tiles;

view_player_t *design_tile_player() {
    return &tiles.player;
}

static const char *text_of(const cJSON *args, const char *name) {
    return cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(args, name));
}

static s32 number_of(const cJSON *args, const char *name) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsNumber(value) ? (s32)std::clamp(value->valuedouble, -1e9, 1e9) : 0;
}

void design_tile_ask(const design_request_t &request, const cJSON *args) {
    if (!text_of(args, "view") || tiles.queue.size() >= QUEUE_MAX) {
        design_refuse(request, "tile needs a view");
        return;
    }
    tiles.queue.push_back({.request = request, .args = cJSON_Duplicate(args, 1)});
}

void design_tile_review(const std::string &view, const std::string &language, const design_review_fn &fn) {
    cJSON *args = cJSON_CreateObject();
    cJSON_AddStringToObject(args, "view", view.c_str());
    cJSON_AddStringToObject(args, "language", language.c_str());
    tiles.queue.push_back({.args = args, .review = fn});
}

void design_tile_draft(const design_request_t &request, cJSON *args, const std::string &folder, cJSON *reply) {
    tiles.queue.push_back({.request = request, .args = args, .folder = folder, .reply = reply});
}

void design_tile_file(const std::string &file) {
    const bool view = file.starts_with("config/view/");
    if (view && view_player_runs(&tiles.player)) {
        cJSON *edit = view_command("edit");
        cJSON_AddStringToObject(edit, "file", file.c_str());
        tiles.edit_id = view_player_send(&tiles.player, edit);
    }
    tiles.outdated = tiles.outdated || !view;
}

static std::string player_begin(const std::string &folder) {
    view_player_stop(&tiles.player);
    tiles.outdated = false;
    tiles.loaded = folder;
    std::string fault = view_player_start(&tiles.player, false, design.loud);
    cJSON *load = view_command("load");
    cJSON_AddStringToObject(load, "dir", folder.empty() ? design.folder.c_str() : folder.c_str());
    tiles.load_id = fault.empty() ? view_player_send(&tiles.player, load) : 0;
    if (!fault.empty()) {
        cJSON_Delete(load);
    }
    return fault;
}

static void state_send(const cJSON *args, const char *state) {
    cJSON *command = view_command("state");
    cJSON_AddStringToObject(command, "control", text_of(args, "control"));
    cJSON_AddStringToObject(command, "state", state);
    view_player_send(&tiles.player, command);
}

// Sends all commands of a tile; the picture is taken at the reply to the last one.
static void tile_begin(const tile_t &tile) {
    const cJSON *args = tile.args;
    cJSON *show = view_command("show");
    for (const char *name : {"view", "language", "theme"}) {
        if (text_of(args, name) && *text_of(args, name)) {
            cJSON_AddStringToObject(show, name, text_of(args, name));
        }
    }
    cJSON_AddBoolToObject(show, "alone", true);
    tiles.last_id = view_player_send(&tiles.player, show);
    tiles.tree_id = 0;
    tiles.box = {};
    if (tile.review) {
        tiles.last_id = view_player_send(&tiles.player, view_command("review"));
    } else if (text_of(args, "control")) {
        if (text_of(args, "state")) {
            state_send(args, text_of(args, "state"));
            cJSON *advance = view_command("advance"); // states may fade in
            cJSON_AddNumberToObject(advance, "ms", 1000);
            view_player_send(&tiles.player, advance);
        }
        tiles.last_id = tiles.tree_id = view_player_send(&tiles.player, view_command("tree"));
    }
}

// Finds the box of the control in the list of what is drawn.
static void box_take(const cJSON *reply) {
    const char *wanted = text_of(tiles.queue.front().args, "control");
    const cJSON *view = nullptr;
    const cJSON *control = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItemCaseSensitive(reply, "views")) {
        cJSON_ArrayForEach(control, cJSON_GetObjectItemCaseSensitive(view, "controls")) {
            const char *path = text_of(control, "path");
            const cJSON *box = cJSON_GetObjectItemCaseSensitive(control, "box");
            const bool seen = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(control, "visible"));
            if (path && wanted && std::string(path) == wanted && seen && cJSON_GetArraySize(box) == 4) {
                tiles.box = {cJSON_GetArrayItem(box, 0)->valueint, cJSON_GetArrayItem(box, 1)->valueint,
                             cJSON_GetArrayItem(box, 2)->valueint, cJSON_GetArrayItem(box, 3)->valueint};
            }
        }
    }
}

static view_image_t picture_cut(const view_image_t &from, const view_box_t &box) {
    const s32 x = std::clamp(box.x, 0, from.width - 1);
    const s32 y = std::clamp(box.y, 0, from.height - 1);
    view_image_t out = view_image(std::clamp(box.w, 1, from.width - x), std::clamp(box.h, 1, from.height - y), 0);
    for (s32 row = 0; row < out.height; row++) {
        const auto start = from.pixels.begin() + (y + row) * from.width + x;
        std::copy(start, start + out.width, out.pixels.begin() + row * out.width);
    }
    return out;
}

// Whether all pixels of a column, or of a row, are those of another one.
static bool lines_equal(const view_image_t &picture, s32 one, s32 other, bool columns) {
    const s32 step = columns ? picture.width : 1;
    const s32 length = columns ? picture.height : picture.width;
    const u32 *a = picture.pixels.data() + (size_t)one * (size_t)(columns ? 1 : picture.width);
    const u32 *b = picture.pixels.data() + (size_t)other * (size_t)(columns ? 1 : picture.width);
    for (s32 i = 0; i < length; i++) {
        if (a[(size_t)i * (size_t)step] != b[(size_t)i * (size_t)step]) {
            return false;
        }
    }
    return true;
}

// Returns the first line that differs from the outermost one, and the number of those from it to the last such line.
static std::pair<s32, s32> range_drawn(const view_image_t &picture, bool columns) {
    enum { MARGIN = 6 };
    const s32 count = columns ? picture.width : picture.height;
    s32 first = 0;
    s32 last = count - 1;
    while (first < last && lines_equal(picture, first, 0, columns)) {
        first++;
    }
    while (last > first && lines_equal(picture, last, count - 1, columns)) {
        last--;
    }
    first = std::max(0, first - MARGIN);
    return {first, std::min(count - 1, last + MARGIN) - first + 1};
}

// Cuts the plain space around what is drawn, so that a short text in a wide control stays readable.
static view_image_t picture_trimmed(const view_image_t &from) {
    const auto [x, w] = range_drawn(from, true);
    const auto [y, h] = range_drawn(from, false);
    return picture_cut(from, {x, y, w, h});
}

// Each pixel is the mean of those that it covers, so that thin lines and texts stay visible in small pictures.
static view_image_t picture_scaled(const view_image_t &from, s32 width, s32 height) {
    view_image_t out = view_image(width, height, 0);
    for (s32 y = 0; y < height; y++) {
        const s32 top = y * from.height / height;
        const s32 low = std::max(top + 1, (y + 1) * from.height / height);
        for (s32 x = 0; x < width; x++) {
            const s32 left = x * from.width / width;
            const s32 right = std::max(left + 1, (x + 1) * from.width / width);
            u32 sum[3] = {};
            for (s32 row = top; row < low; row++) {
                for (s32 col = left; col < right; col++) {
                    const u32 pixel = from.pixels[(size_t)row * (size_t)from.width + (size_t)col];
                    sum[0] += pixel >> 16 & 0xFF;
                    sum[1] += pixel >> 8 & 0xFF;
                    sum[2] += pixel & 0xFF;
                }
            }
            const auto count = (u32)((low - top) * (right - left));
            out.pixels[(size_t)y * (size_t)width + (size_t)x] =
                0xFF000000u | sum[0] / count << 16 | sum[1] / count << 8 | sum[2] / count;
        }
    }
    return out;
}

static s32 side_scaled(s32 side, double scale) {
    return std::max(1, (s32)std::lround(side * scale));
}

view_image_t design_tile_fitted(const view_image_t &picture, s32 width, s32 height) {
    const double scale = std::min((double)width / picture.width, (double)height / picture.height);
    return scale < 1 ? picture_scaled(picture, side_scaled(picture.width, scale), side_scaled(picture.height, scale))
                     : picture;
}

// Takes the first tile from the queue, with its temporary folder.
static tile_t tile_take() {
    tile_t tile = tiles.queue.front();
    tiles.queue.pop_front();
    tiles.last_id = 0;
    std::error_code ignored;
    if (!tile.folder.empty()) {
        std::filesystem::remove_all(tile.folder, ignored);
    }
    return tile;
}

static void tile_end() {
    const tile_t tile = tile_take();
    view_image_t picture;
    const char *control = text_of(tile.args, "control");
    const bool drawn = view_player_picture(&tiles.player, &picture.pixels, &picture.width, &picture.height);
    if (!drawn || (control && tiles.box.w <= 0)) {
        design_refuse(tile.request, drawn ? std::string(control) + " is not visible" : "there is no picture");
        cJSON_Delete(tile.args);
        cJSON_Delete(tile.reply);
        return;
    }
    if (tiles.box.w > 0) {
        picture = picture_cut(picture, tiles.box);
        if (text_of(tile.args, "state")) {
            state_send(tile.args, "default");
        }
    }
    const s32 width = std::clamp(number_of(tile.args, "width"), 1, (s32)SIDE_MAX);
    const s32 height = std::clamp(number_of(tile.args, "height"), 1, (s32)SIDE_MAX);
    const bool wide = picture.width > width || picture.height > height;
    if (wide && cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(tile.args, "trim"))) {
        picture = picture_trimmed(picture);
    }
    design_frame_tile(tile.request.page, (u32)number_of(tile.args, "tile"), design_tile_fitted(picture, width, height));
    design_answer(tile.request, tile.reply ? tile.reply : cJSON_CreateObject());
    cJSON_Delete(tile.args);
}

static void review_end(const cJSON *reply) {
    const tile_t tile = tile_take();
    tile.review(reply);
    cJSON_Delete(tile.args);
}

static void all_refuse(const std::string &why) {
    while (!tiles.queue.empty()) {
        const tile_t tile = tile_take();
        if (tile.review) {
            tile.review(nullptr);
        } else {
            design_refuse(tile.request, why);
        }
        cJSON_Delete(tile.args);
        cJSON_Delete(tile.reply);
    }
}

static void line_take(const cJSON *line) {
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(line, "id");
    const s32 number = cJSON_IsNumber(id) ? id->valueint : 0;
    const bool good = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(line, "ok"));
    tiles.load_id = number == tiles.load_id ? 0 : tiles.load_id;
    tiles.outdated = tiles.outdated || (number && number == tiles.edit_id && !good);
    if (number && number == tiles.tree_id && !tiles.queue.empty()) {
        box_take(line);
    }
    if (number && number == tiles.last_id && !tiles.queue.empty()) {
        tiles.queue.front().review ? review_end(line) : tile_end();
    }
}

void design_tile_step() {
    if (view_player_runs(&tiles.player) && !view_player_poll(&tiles.player, line_take)) {
        all_refuse("the runtime ended with " + tiles.player.ended);
        view_player_stop(&tiles.player);
    }
    if (tiles.queue.empty() || tiles.last_id || tiles.load_id) {
        return;
    }
    const std::string &folder = tiles.queue.front().folder;
    if (tiles.outdated || tiles.loaded != folder || !view_player_runs(&tiles.player)) {
        const std::string fault = player_begin(folder);
        if (!fault.empty()) {
            all_refuse(fault);
        }
        return;
    }
    tile_begin(tiles.queue.front());
}
