// Sends faults in the project's files as events.
#include "inspect/zof_inspect_in.h"
#include "project/read/zof_fault.h"

static bool started, logged;

static void message(const zof_fault_t *fault) {
    cJSON *event = inspect_event("message");
    cJSON_AddStringToObject(event, "file", fault->file);
    cJSON_AddNumberToObject(event, "line", fault->line);
    cJSON_AddNumberToObject(event, "column", fault->col);
    cJSON_AddStringToObject(event, "key", fault->key);
    cJSON_AddStringToObject(event, "text", fault->text);
    if (fault->broken) {
        cJSON_AddTrueToObject(event, "broken");
    }
    inspect_send(event);
    if (logged) {
        zof_fault_log(fault);
    }
}

void inspect_messages_start(bool log) {
    logged = started ? logged : log;
    started = true;
    zof_fault_to(message);
}
