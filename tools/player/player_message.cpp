// Sends faults in the project's files as events.
#include "player.h"
#include "project/read/zof_fault.h"

static void message(const zof_fault_t *fault) {
    cJSON *event = player_event("message");
    cJSON_AddStringToObject(event, "file", fault->file);
    cJSON_AddNumberToObject(event, "line", fault->line);
    cJSON_AddNumberToObject(event, "column", fault->col);
    cJSON_AddStringToObject(event, "key", fault->key);
    cJSON_AddStringToObject(event, "text", fault->text);
    player_send(event);
}

void player_messages_init() {
    zof_fault_to(message);
}
