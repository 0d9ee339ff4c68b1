// Values by the rows of the host protocol. Values written by a host or by `set` are kept for the snapshot: the last
// value for each combination of selecting fields, in the order of writing.
#include <algorithm>
#include <cstring>

#include "control/zof_ctrl.h"
#include "hmi/zof_hmi_analys.h"
#include "inspect/zof_inspect_in.h"
#include "project/look/zof_lang.h"

enum { WRITES_MAX = 10000, FIELDS_MAX = 8 };

struct write_t {
    std::string what; // the row, the control and the selecting fields
    std::string line; // the arguments of `set`, as JSON
};
static std::vector<write_t> writes;

static size_t field_size(u8 type) {
    static constexpr size_t sizes[] = {sizeof(char *), 1, 1, 2, 2, 4, 4};
    static_assert(sizeof(sizes) / sizeof(sizes[0]) == ZOF_HMI_T_COUNT);
    return type < ZOF_HMI_T_COUNT ? sizes[type] : 0;
}

static bool is_signed(u8 type) {
    return type == ZOF_HMI_T_S8 || type == ZOF_HMI_T_S16 || type == ZOF_HMI_T_S32;
}

// Returns false if the value is of the wrong kind or out of the field's range.
static bool field_write(u8 *record, const zof_hmi_field_t *field, const cJSON *value) {
    if (field->type == ZOF_HMI_T_STR) {
        const char *text = cJSON_GetStringValue(value);
        memcpy(record + field->offset, &text, sizeof(text));
        return text != nullptr;
    }
    const size_t bytes = field_size(field->type);
    const double most = (double)(((u64)1 << (bytes * 8 - is_signed(field->type))) - 1);
    const double least = is_signed(field->type) ? -most - 1 : 0;
    const double number = cJSON_IsBool(value) ? cJSON_IsTrue(value) : cJSON_GetNumberValue(value);
    if (!(number >= least && number <= most)) {
        return false;
    }
    const s64 whole = (s64)number; // little-endian, as on all systems to which the runtime has been ported
    memcpy(record + field->offset, &whole, bytes);
    return true;
}

static cJSON *field_read(const u8 *record, const zof_hmi_field_t *field) {
    if (field->type == ZOF_HMI_T_STR) {
        const char *text = nullptr;
        memcpy(&text, record + field->offset, sizeof(text));
        return cJSON_CreateString(text ? text : "");
    }
    const size_t bytes = field_size(field->type);
    u64 raw = 0;
    memcpy(&raw, record + field->offset, bytes);
    const u64 sign = (u64)1 << (bytes * 8 - 1);
    const s64 number = is_signed(field->type) && (raw & sign) ? (s64)raw - (s64)(sign << 1) : (s64)raw;
    return cJSON_CreateNumber((double)number);
}

// Writes a record. A single value may be written without an array.
static std::string record_write(u8 *record, const zof_hmi_rec_t *list, const cJSON *value, const char *what) {
    const bool array = cJSON_IsArray(value);
    const s32 given = array ? cJSON_GetArraySize(value) : value ? 1 : 0;
    if (given != list->count) {
        return std::string(what) + " needs " + std::to_string(list->count) + " values";
    }
    for (s32 i = 0; i < given; i++) {
        if (!field_write(record, &list->fields[i], array ? cJSON_GetArrayItem(value, i) : value)) {
            return std::string(what) + " " + std::to_string(i + 1) + " is of a wrong kind or out of range";
        }
    }
    return "";
}

static cJSON *record_read(const void *record, const zof_hmi_rec_t *list, u32 count) {
    cJSON *out = cJSON_CreateArray();
    for (u32 i = 0; i < std::min((u32)list->count, count); i++) {
        cJSON_AddItemToArray(out, field_read((const u8 *)record, &list->fields[i]));
    }
    return out;
}

static std::string text_of(cJSON *value) {
    char *text = cJSON_PrintUnformatted(value);
    std::string out = text ? text : "";
    cJSON_free(text);
    cJSON_Delete(value);
    return out;
}

// As JSON, because the records point into a frame that is released later.
void inspect_write_keep(const zof_hmi_cmd_type_t *type, const zof_hmi_param_type_t *param, const void *type_param,
                        const void *req_param, const void *value_param) {
    if (param->chooses == ZOF_HMI_ACTS || strcmp(type->name, "system") == 0) {
        return;
    }
    const bool of_control = type->rec == &zof_hmi_ctrl_id_t_tbl;
    const std::string row = std::string(type->name) + "." + param->name;
    if (row == "view.display" || row == "view.load") {
        return; // views are part of the snapshot already
    }
    const auto *ctrl = (const zof_hmi_ctrl_id_t *)type_param;
    cJSON *line = cJSON_CreateObject();
    cJSON_AddStringToObject(line, "row", row.c_str());
    std::string what = row;
    if (of_control) {
        const std::string path = inspect_path(ctrl->view_id, ctrl->ctrl_id);
        cJSON_AddStringToObject(line, "control", path.c_str());
        what += " " + path;
    }
    if (param->rw->req->count) {
        cJSON_AddItemToObject(line, "request", record_read(req_param, param->rw->req, FIELDS_MAX));
        what += text_of(record_read(req_param, param->rw->req, FIELDS_MAX));
    }
    cJSON_AddItemToObject(line, "value", record_read(value_param, param->value, FIELDS_MAX));
    what += text_of(record_read(value_param, param->value, param->chooses));
    std::erase_if(writes, [&](const write_t &w) { return w.what == what; });
    if (writes.size() >= WRITES_MAX) {
        writes.erase(writes.begin());
    }
    writes.push_back({what, text_of(line)});
}

// Returns the first row of a type that can be read and written, which holds its value, or else the first writable row.
std::string inspect_row_of(const char *type) {
    std::string row;
    for (u32 i = 0; type && i < zof_ui_cmd_type_count; i++) {
        const zof_hmi_cmd_type_t *rows = &zof_ui_cmd_types[i];
        for (u32 n = 0; strcmp(rows->name, type) == 0 && n < rows->param_count; n++) {
            const zof_hmi_param_type_t *param = &rows->params[n];
            if (param->set_fun && (row.empty() || param->get_fun)) {
                row = std::string(type) + "." + param->name;
            }
            if (param->set_fun && param->get_fun) {
                return row;
            }
        }
    }
    return row;
}

// Finds a row such as "label.text" in the tables.
static const zof_hmi_param_type_t *row_find(const char *name, const zof_hmi_cmd_type_t **type) {
    for (u32 i = 0; name && i < zof_ui_cmd_type_count; i++) {
        *type = &zof_ui_cmd_types[i];
        for (u32 n = 0; n < (*type)->param_count; n++) {
            const zof_hmi_param_type_t *param = &(*type)->params[n];
            if (std::string((*type)->name) + "." + param->name == name) {
                return param;
            }
        }
    }
    return nullptr;
}

const char *inspect_row_takes(const char *name) {
    const zof_hmi_cmd_type_t *type = nullptr;
    const zof_hmi_param_type_t *param = row_find(name, &type);
    if (!param || !param->set_fun || param->rw->req->count || param->value->count != 1) {
        return "";
    }
    return param->value->fields[0].type == ZOF_HMI_T_STR ? "text" : "number";
}

static std::string control_find(const char *path, zof_hmi_ctrl_id_t *out) {
    u32 view = 0;
    const para_t *record = path ? inspect_control(path, &view) : nullptr;
    if (!record) {
        return "there is no control " + std::string(path ? path : "");
    }
    *out = {(u16)view, record->id};
    return "";
}

// Rows of the system are refused, because they belong to the link, which need not be open.
std::string inspect_set(const cJSON *args) {
    const zof_hmi_cmd_type_t *type = nullptr;
    const char *name = inspect_text(args, "row");
    const zof_hmi_param_type_t *param = row_find(name, &type);
    if (!param || !param->set_fun || strcmp(type->name, "system") == 0) {
        return "there is no row " + std::string(name ? name : "") + " that can be written";
    }
    alignas(8) u8 records[4][ZOF_HMI_RECORD_SIZE] = {};
    zof_hmi_ctrl_id_t ctrl = {};
    std::string fault;
    if (type->rec == &zof_hmi_ctrl_id_t_tbl) {
        fault = control_find(inspect_text(args, "control"), &ctrl);
        memcpy(records[0], &ctrl, sizeof(ctrl));
    }
    if (fault.empty()) {
        fault = record_write(records[1], param->rw->req, cJSON_GetObjectItemCaseSensitive(args, "request"), "request");
    }
    if (fault.empty()) {
        fault = record_write(records[2], param->value, cJSON_GetObjectItemCaseSensitive(args, "value"), "value");
    }
    if (!fault.empty()) {
        return fault;
    }
    if (param->set_fun(records[0], records[1], records[2], records[3]) == ZOF_HMI_AGAIN) {
        param->set_fun(records[0], records[1], records[2], records[3]);
    }
    inspect_write_keep(type, param, records[0], records[1], records[2]);
    return "";
}

static void scrolled_add(cJSON *out, const zof_view_node_t *view) {
    for (const db_node *at = view->ctrl_list->head->next; at != view->ctrl_list->head; at = at->next) {
        const auto *record = (const para_t *)at->data;
        const lv_coord_t x = record->obj ? lv_obj_get_scroll_x(record->obj) : 0;
        const lv_coord_t y = record->obj ? lv_obj_get_scroll_y(record->obj) : 0;
        if (x || y) {
            cJSON *scroll = cJSON_CreateObject();
            cJSON_AddStringToObject(scroll, "control", inspect_path(view->attr->v_id, record->id).c_str());
            cJSON_AddNumberToObject(scroll, "x", x);
            cJSON_AddNumberToObject(scroll, "y", y);
            cJSON_AddItemToArray(out, scroll);
        }
    }
}

cJSON *inspect_snapshot() {
    cJSON *out = cJSON_CreateObject();
    const zof_prj_t *prj = zof_prj_get_cur();
    cJSON_AddStringToObject(out, "language", prj->lang_name ? prj->lang_name : "");
    cJSON_AddStringToObject(out, "theme", inspect_theme().c_str());
    cJSON *kept = cJSON_AddArrayToObject(out, "writes");
    for (const write_t &w : writes) {
        cJSON_AddItemToArray(kept, cJSON_Parse(w.line.c_str()));
    }
    cJSON *shown = cJSON_AddArrayToObject(out, "views");
    cJSON *scrolls = cJSON_AddArrayToObject(out, "scrolls");
    for (const zof_view_node_t *node : inspect_views_shown()) {
        cJSON_AddItemToArray(shown, cJSON_CreateString(inspect_view_name(node->attr->v_id).c_str()));
        scrolled_add(scrolls, node);
    }
    return out;
}

static std::string views_restore(const cJSON *state) {
    const cJSON *item = nullptr;
    std::string fault;
    cJSON_ArrayForEach(item, cJSON_GetObjectItemCaseSensitive(state, "views")) {
        const u32 view = inspect_view_find(item);
        const std::string failed = view ? inspect_view_show(view) : "";
        fault = fault.empty() ? failed : fault;
    }
    return fault;
}

// Skips parts of the snapshot that no longer exist, because the project may have changed. A view that exists but cannot
// be shown is an error.
std::string inspect_restore(const cJSON *state) {
    if (!cJSON_IsObject(state)) {
        return "state must be an object";
    }
    const char *lang = inspect_text(state, "language");
    if (lang && *lang) {
        inspect_lang_set(lang);
    }
    const char *theme = inspect_text(state, "theme");
    if (theme && *theme) {
        inspect_theme_set(theme);
    }
    std::string fault = views_restore(state);
    const cJSON *item = nullptr;
    cJSON_ArrayForEach(item, cJSON_GetObjectItemCaseSensitive(state, "writes")) {
        inspect_set(item);
    }
    cJSON_ArrayForEach(item, cJSON_GetObjectItemCaseSensitive(state, "scrolls")) {
        u32 view = 0;
        const para_t *record = inspect_control(inspect_text(item, "control"), &view);
        if (record && record->obj) {
            lv_obj_update_layout(record->obj);
            lv_obj_scroll_to(record->obj, inspect_number(item, "x", 0), inspect_number(item, "y", 0), LV_ANIM_OFF);
        }
    }
    return fault;
}
