// What users do with controls, and who has written their values. A host and `set` are seen when they write, users by
// their events. A value that has changed without any of these was written by the program; that is noticed when the
// values are asked for.
#include <map>

#include "catalogue/zof_cat.h"
#include "control/zof_ctrl.h"
#include "control/zof_ctrl_create.h"
#include "drv/zof_drv.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_event.h"
#include "inspect/zof_inspect.h"
#include "inspect/zof_inspect_in.h"

static constexpr const char *writers[] = {"", "host", "inspector", "user", "program"};

struct value_t {
    s32 number;
    std::string text;
    inspect_writer_e writer;
    u32 at;     // ms, of the last write
    u32 count;  // of writes
    u32 change; // the number of the last write among those of all controls, from 1
    bool known; // number and text were read
};
static std::map<std::pair<u32, u32>, value_t> values; // by view and control
static u32 changes;
static bool events_wanted;

static void written(value_t *value, inspect_writer_e writer) {
    value->writer = writer;
    value->at = zof_sys_time_ms();
    value->count++;
    value->change = ++changes;
}

// Returns whether the control now has another value than the known one.
static bool value_read(value_t *value, para_t *record) {
    zof_ctrl_value_t now = {};
    if (zof_ctrl_get_value(record, &now) != 0) {
        return false;
    }
    const bool changed = value->known && (value->number != now.number || value->text != now.text);
    value->number = now.number;
    value->text = now.text;
    value->known = true;
    return changed;
}

void inspect_written(u32 view, u32 ctrl, inspect_writer_e writer) {
    para_t *record = zof_ctrl_get_form_id(view, ctrl);
    if (record) { // a host may write to any number
        written(&values[{view, ctrl}], writer);
        value_read(&values[{view, ctrl}], record);
    }
}

static void host_wrote(const zof_hmi_cmd_type_t *type, const zof_hmi_param_type_t *param, const void *type_param,
                       const void *req_param, const void *value_param) {
    inspect_write_keep(type, param, type_param, req_param, value_param);
    if (type->rec == &zof_hmi_ctrl_id_t_tbl) {
        const auto *ctrl = (const zof_hmi_ctrl_id_t *)type_param;
        inspect_written(ctrl->view_id, ctrl->ctrl_id, INSPECT_BY_HOST);
    }
}

void inspect_writes_watch() {
    zof_hmi_cmd_on_write(host_wrote);
}

void inspect_events_start() {
    events_wanted = true;
    zof_ctrl_watch_update(); // of controls that exist already
}

zof_bool zof_inspect_events_wanted(void) {
    return events_wanted ? ZOF_TRUE : ZOF_FALSE;
}

static void event_send(para_t *record, const char *what) {
    zof_ctrl_value_t value = {};
    cJSON *event = inspect_event("control");
    cJSON_AddStringToObject(event, "control", inspect_path(record->attr->view_id, record->id).c_str());
    cJSON_AddStringToObject(event, "what", what);
    if (zof_ctrl_get_value(record, &value) == 0) {
        cJSON_AddNumberToObject(event, "value", value.number);
        cJSON_AddStringToObject(event, "text", value.text);
    }
    inspect_send(event);
}

// A host's command and a program may cause events, too, but only users do it with an input device.
void zof_inspect_event(para_t *record, u32 event) {
    if (!events_wanted || !lv_indev_get_act()) {
        return;
    }
    for (u32 i = ZOF_HMI_EVENT_CLICKED; i < ZOF_HMI_EVENT_COUNT; i++) {
        if (zof_hmi_event_rows[i].event == (zof_event_e)event) {
            event_send(record, zof_hmi_event_rows[i].name);
        }
    }
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        inspect_written(record->attr->view_id, record->id, INSPECT_BY_USER);
    }
}

static cJSON *value_json(const value_t *value, const zof_view_node_t *view, const para_t *record) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "control", inspect_path(view->attr->v_id, record->id).c_str());
    const std::string row = inspect_row_of(zof_cat_types[record->attr->ctrl_type].rows);
    cJSON_AddStringToObject(out, "row", row.c_str());
    cJSON_AddStringToObject(out, "takes", inspect_row_takes(row.c_str()));
    cJSON_AddNumberToObject(out, "number", value->number);
    cJSON_AddStringToObject(out, "text", value->text.c_str());
    if (value->writer) {
        cJSON_AddStringToObject(out, "by", writers[value->writer]);
        cJSON_AddNumberToObject(out, "age", zof_sys_time_ms() - value->at);
        cJSON_AddNumberToObject(out, "count", value->count);
    }
    return out;
}

// Nobody has written the texts of another language.
static void language_notice() {
    static std::string language;
    const char *name = zof_prj_get_cur()->lang_name;
    if (name && language != name) {
        language = name;
        for (auto &[control, value] : values) {
            value.known = false;
        }
    }
}

void inspect_values(s32 since, cJSON *reply) {
    language_notice();
    cJSON *out = cJSON_AddArrayToObject(reply, "values");
    for (const zof_view_node_t *view : inspect_views_shown()) {
        for (const db_node *at = view->ctrl_list->head->next; at != view->ctrl_list->head; at = at->next) {
            auto *record = (para_t *)at->data;
            if (!zof_ctrl_has_value(record)) {
                continue;
            }
            value_t *value = &values[{view->attr->v_id, record->id}];
            const bool first = !value->known;
            if (value_read(value, record)) {
                written(value, INSPECT_BY_PROGRAM);
            }
            if (first || since < 0 || value->change > (u32)since) {
                cJSON_AddItemToArray(out, value_json(value, view, record));
            }
        }
    }
    cJSON_AddNumberToObject(reply, "change", changes);
}
