// What readers find wrong in the project's files, as events. The runtime's parser only knows where it stopped; the
// reader that keeps places knows what it expected there.
#include "player.h"
#include "project/read/zof_fault.h"
#include "zof_lib/zof_stdio.h"

static u32 count;

static void message(const zof_fault_t *fault) {
    u32 line = fault->line;
    u32 col = fault->col;
    const std::string syntax = fault->key[0] ? "" : player_syntax(fault->file, &line, &col);
    cJSON *event = player_event("message");
    cJSON_AddStringToObject(event, "file", fault->file);
    cJSON_AddNumberToObject(event, "line", line);
    cJSON_AddNumberToObject(event, "column", col);
    cJSON_AddStringToObject(event, "key", fault->key);
    cJSON_AddStringToObject(event, "text", syntax.empty() ? fault->text : syntax.c_str());
    player_send(event);
    count++;
}

void player_messages_init() {
    zof_fault_to(message);
}

u32 player_messages_count() {
    return count;
}
