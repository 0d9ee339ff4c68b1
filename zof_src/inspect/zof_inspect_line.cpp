// Lines of commands, replies and events, and who gets them.
#include <cmath>

#include "drv/zof_drv_aid.h"
#include "inspect/zof_inspect_in.h"
#include "zof_lib/zof_stdio.h"

enum { PEERS_MAX = 2 };

static const inspect_peer_t *peers[PEERS_MAX];
static u32 peer_count;

bool inspect_reader_put(inspect_reader_t *reader, char byte) {
    if (byte == '\n') {
        return true;
    }
    reader->cut = reader->cut || reader->line.size() >= INSPECT_LINE_MAX;
    if (!reader->cut) {
        reader->line += byte;
    }
    return false;
}

void inspect_reader_clear(inspect_reader_t *reader) {
    reader->line.clear();
    reader->cut = false;
}

static std::string base64(const u8 *bytes, size_t size) {
    static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((size + 2) / 3 * 4);
    for (size_t i = 0; i < size; i += 3) {
        const u32 left = (u32)(size - i);
        const u32 three =
            (u32)bytes[i] << 16 | (left > 1 ? (u32)bytes[i + 1] << 8 : 0) | (left > 2 ? (u32)bytes[i + 2] : 0);
        out += digits[three >> 18];
        out += digits[three >> 12 & 63];
        out += left > 1 ? digits[three >> 6 & 63] : '=';
        out += left > 2 ? digits[three & 63] : '=';
    }
    return out;
}

std::string inspect_line_text(const inspect_line_t *line) {
    size_t size = 0;
    u8 *png = line->pixels.empty() ? nullptr : zof_drv_aid_png(line->pixels.data(), line->width, line->height, &size);
    if (!png) {
        return line->text;
    }
    std::string text = line->text.substr(0, line->text.size() - 1) + ",\"png\":\"" + base64(png, size) + "\"}";
    zof_lv_free(png);
    return text;
}

void inspect_peer_add(const inspect_peer_t *peer) {
    if (peer_count < PEERS_MAX) {
        peers[peer_count++] = peer;
    }
}

cJSON *inspect_event(const char *name) {
    cJSON *event = cJSON_CreateObject();
    cJSON_AddStringToObject(event, "event", name);
    return event;
}

void inspect_send(cJSON *event) {
    char *text = cJSON_PrintUnformatted(event);
    cJSON_Delete(event);
    const inspect_line_t line = {text ? text : "{}", {}, 0, 0};
    cJSON_free(text);
    for (u32 i = 0; i < peer_count; i++) {
        peers[i]->put(&line);
    }
}

const char *inspect_text(const cJSON *args, const char *name) {
    return cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(args, name));
}

s32 inspect_number(const cJSON *args, const char *name, s32 absent) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsNumber(value) && std::isfinite(value->valuedouble) ? value->valueint : absent;
}

cJSON *inspect_box(const lv_area_t *area) {
    const int box[] = {area->x1, area->y1, lv_area_get_width(area), lv_area_get_height(area)};
    return cJSON_CreateIntArray(box, 4);
}
