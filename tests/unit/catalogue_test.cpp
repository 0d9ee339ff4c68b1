// The catalogue against what it describes: reflection tables, control types, public functions, host rows.
#include "temp_project.h"
#include "zof_test.h"

#include <algorithm>
#include <set>

#include "catalogue/zof_cat.h"
#include "hmi/zof_hmi_cmd.h"

template <typename F> static void each_record(F &&fn) {
    for (u32 i = 0; zof_cat_records[i]->name; i++) {
        CAPTURE(str(zof_cat_records[i]->name));
        fn(zof_cat_records[i]);
    }
}

template <typename F> static void each_key(F &&fn) {
    each_record([&](const zof_cat_record_t *record) {
        for (u32 i = 0; i < record->count; i++) {
            CAPTURE(str(record->keys[i].key));
            fn(record, &record->keys[i]);
        }
    });
}

// Returns whether a field of this reflection row can hold values of the kind.
static bool fits(zof_cat_kind_e kind, const reflect_item_t *row) {
    static const size_t types[] = {CSON_INTEGER, CSON_TRUE, CSON_STRING, CSON_OBJECT, CSON_ARRAY};
    static const char *const json[] = {"number", "bool", "text", "object", "array"};
    if (row->type == CSON_NULL) {
        return true; // read by hand
    }
    const bool named = row->names != nullptr;
    const bool sum = named && row->flags & CSON_ADDS;
    const bool choice = kind == ZOF_CAT_NAMED ? named && !sum : kind == ZOF_CAT_SUM ? sum : !named;
    const bool color = (row->flags & CSON_COLORS) != 0;
    u32 i = 0;
    while (types[i] != row->type) {
        i++;
    }
    return choice && color == (kind == ZOF_CAT_COLOR) && std::string(json[i]) == zof_cat_kinds[kind].json;
}

TEST_CASE("every decoded key has exactly one row in the catalogue, and every row is decoded") {
    std::set<const reflect_item_t *> tables;
    std::set<std::string> names;
    each_record([&](const zof_cat_record_t *record) {
        CHECK(names.insert(record->name).second);
        std::set<std::string> labels;
        for (u32 i = 0; i < record->count; i++) {
            const zof_cat_key_t &key = record->keys[i];
            CHECK((key.flags & ZOF_CAT_IGNORED || labels.insert(key.label ? key.label : key.key).second));
        }
        tables.insert(record->rows);
        for (const reflect_item_t *row = record->rows; row && row->key; row++) {
            CAPTURE(str(row->key));
            CHECK(std::count_if(record->keys, record->keys + record->count,
                                [&](const zof_cat_key_t &key) { return str(key.key) == row->key; }) == 1);
        }
    });
    for (const reflect_item_t *root : {zof_prj_attr_t_tbl, zof_hmi_attr_t_tbl, zof_view_attr_t_tbl, zof_entry_t_tbl,
                                       zof_pub_attr_t_tbl, zof_style_attr_t_tbl}) {
        CHECK(tables.count(root) == 1);
    }
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        CHECK(zof_cat_types[type].record->rows == zof_ctrl_classes[type]->attr);
    }
    each_key([&](const zof_cat_record_t *record, const zof_cat_key_t *key) {
        CHECK(zof_cat_key(record, key->key) == key);
        const reflect_item_t *row = zof_cat_row(record, key);
        CHECK(!row == !record->rows);
        const bool nested = key->kind == ZOF_CAT_OBJECT || key->kind == ZOF_CAT_ARRAY;
        CHECK((nested || !key->record));
        if (row && row->type != CSON_NULL) {
            CHECK(fits(key->kind, row));
            CHECK((!nested || key->record->rows == row->table));
        }
    });
}

// A record of start values, as JSON.
static std::string new_record(const zof_cat_record_t *record) {
    std::string text = "{";
    for (u32 i = 0; i < record->count; i++) {
        const zof_cat_key_t *key = &record->keys[i];
        if (key->start) {
            text += (text.size() > 1 ? ", \"" : "\"") + str(key->key) + "\": " + key->start;
        }
    }
    return text + "}";
}

TEST_CASE("start values, absent values and the ends of ranges are valid") {
    each_record([](const zof_cat_record_t *record) {
        if (!record->rows || record->keys[0].key[0] == '0') {
            return;
        }
        const std::string log = printed([&] {
            alignas(16) char space[4096] = {};
            cJSON *json = cJSON_Parse(new_record(record).c_str());
            REQUIRE(json);
            csonJsonStr2Struct(json, space, record->rows);
            csonFreePointer(space, record->rows);
            cJSON_Delete(json);
        });
        CHECK(log == "");
    });
    each_key([](const zof_cat_record_t *record, const zof_cat_key_t *key) {
        const reflect_item_t *row = zof_cat_row(record, key);
        if (!row || row->type != CSON_INTEGER) {
            return;
        }
        const size_t values = row->flags >> CSON_VALUES_SHIFT;
        const s64 most = values ? (s64)values - 1 : (s64)(1ull << 8 * row->size) - 1;
        const s64 least = values ? 0 : -((s64)1 << (8 * row->size - 1));
        CHECK(key->low <= key->high);
        CHECK((key->high <= most || key->high == ZOF_CAT_ANY));
        CHECK(key->low >= least);
        CHECK((!key->absent || (atoll(key->absent) >= key->low && (!key->high || atoll(key->absent) <= key->high))));
    });
}

TEST_CASE("the functions of the catalogue are declared in public headers, and its host rows exist") {
    std::string headers;
    for (const auto &file : std::filesystem::recursive_directory_iterator(ZOF_SOURCE_DIR "/zof_src")) {
        headers += file.path().extension() == ".h" ? file_text(file.path()) : "";
    }
    const auto declared = [&](const char *call) {
        return contains(headers, " " + str(call) + "(") || contains(headers, "*" + str(call) + "(");
    };
    std::set<std::string> rows;
    std::set<std::string> types;
    for (u32 i = 0; i < zof_ui_cmd_type_count; i++) {
        const zof_hmi_cmd_type_t *type = &zof_ui_cmd_types[i];
        types.insert(type->name);
        for (u32 k = 0; k < type->param_count; k++) {
            rows.insert(str(type->name) + "." + type->params[k].name);
        }
    }
    each_key([&](const zof_cat_record_t *, const zof_cat_key_t *key) {
        CHECK((!key->call || declared(key->call)));
        CHECK((!key->row || rows.count(key->row)));
        CHECK((key->help && key->help[0] && key->help[strlen(key->help) - 1] != '.'));
    });
    for (const zof_cat_type_t &type : zof_cat_types) {
        CAPTURE(str(type.name));
        for (const char *const *call = type.calls; *call; call++) {
            CAPTURE(str(*call));
            CHECK(declared(*call));
        }
        CHECK((!type.rows || types.erase(type.rows)));
    }
    CHECK(types == std::set<std::string>{"control", "system", "view"}); // the others belong to a control type
}

TEST_CASE("every control type has its name, its events, and its parts and states unless it has no styles") {
    const std::string events = file_text(ZOF_SOURCE_DIR "/zof_src/project/base/zof_event.h");
    for (u32 i = 0; i < ZOF_CTRL_TYPE_COUNT; i++) {
        const zof_cat_type_t &type = zof_cat_types[i];
        CAPTURE(str(type.name));
        s64 named = -1;
        CHECK((zof_names_read(zof_type_names, ZOF_FALSE, type.name, &named) == 0 && named == i && type.type == i));
        CHECK(str(type.record->name) == type.name);
        for (const char *const *event = type.events; *event; event++) {
            CHECK(contains(events, str(*event) + " ="));
        }
        CHECK((type.events[0] && type.width > 0 && type.height > 0));
        const zof_cat_key_t *styles = zof_cat_key(type.record, "STYLES");
        CHECK((styles && (type.parts == 0) == ((styles->flags & ZOF_CAT_IGNORED) != 0)));
        CHECK(((type.parts & 1) == (type.sections > 0) && (type.sections > 0) == (type.states > 0)));
        CHECK((!zof_ctrl_classes[i]->no_theme || !type.parts));
    }
}
