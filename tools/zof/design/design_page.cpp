// Messages to the pages.
#include <algorithm>
#include <chrono>

#include "design_in.h"
#include "design_net.h"
#include "zof_lib/zof_util.h"

static std::vector<u32> pages;

// Texts come from files, and may be anything. A page closes its connection at bytes that are not UTF-8.
static std::string utf8_made(const std::string &text) {
    std::string out;
    const char *end = text.data() + text.size();
    for (const char *at = text.data(); at < end;) {
        const char *bad = zof_utf8_bad(at, (size_t)(end - at));
        out.append(at, bad ? bad : end);
        out += bad ? "\xEF\xBF\xBD" : ""; // the replacement character
        at = bad ? bad + 1 : end;
    }
    return out;
}

static std::string json_print(cJSON *value) {
    char *text = cJSON_PrintUnformatted(value);
    const std::string out = text ? text : "{}";
    cJSON_free(text);
    cJSON_Delete(value);
    return utf8_made(out);
}

s64 design_now_ms() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

void design_answer(const design_request_t &request, cJSON *reply) {
    cJSON_AddNumberToObject(reply, "id", request.id);
    cJSON_AddBoolToObject(reply, "ok", true);
    design_net_send(request.page, json_print(reply));
}

void design_refuse(const design_request_t &request, const std::string &error) {
    cJSON *reply = cJSON_CreateObject();
    cJSON_AddNumberToObject(reply, "id", request.id);
    cJSON_AddBoolToObject(reply, "ok", false);
    cJSON_AddStringToObject(reply, "error", error.c_str());
    design_net_send(request.page, json_print(reply));
}

cJSON *design_event_make(const char *name) {
    cJSON *event = cJSON_CreateObject();
    cJSON_AddStringToObject(event, "event", name);
    return event;
}

void design_event(cJSON *event) {
    const std::string text = json_print(event);
    for (const u32 page : pages) {
        design_net_send(page, text);
    }
}

std::vector<u32> design_pages() {
    return pages;
}

void design_page_opened(u32 page) {
    pages.push_back(page);
    design_canvas_show(page);
}

void design_page_closed(u32 page) {
    std::erase(pages, page);
}
