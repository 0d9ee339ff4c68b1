// From records to JSON, with the same tables. All values of a record are created before the first one is added, so that
// a failure leaves the caller's tree unchanged.
#include <cstring>

#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"

static s32 getJsonObject(void *record, const reflect_item_t *table, s32 index, void **out);
static s32 getJsonArray(void *record, const reflect_item_t *table, s32 index, void **out);
static s32 getJsonString(void *record, const reflect_item_t *table, s32 index, void **out);
static s32 getJsonInteger(void *record, const reflect_item_t *table, s32 index, void **out);
static s32 getJsonReal(void *record, const reflect_item_t *table, s32 index, void **out);
static s32 getJsonBool(void *record, const reflect_item_t *table, s32 index, void **out);

const cson_pack_fn jsonPackTbl[CSON_TYPE_COUNT] = {
    getJsonObject, getJsonArray, getJsonString, getJsonInteger, getJsonReal, getJsonBool, getJsonBool, nullptr,
};

static s32 pack_row(void *record, const reflect_item_t *table, s32 index, void **out) {
    return table[index].type < CSON_NULL ? jsonPackTbl[table[index].type](record, table, index, out) : CSON_ERR_TYPE;
}

// Fills `values`, one for each row, null for rows that are left out.
static s32 pack_rows(void *record, const reflect_item_t *table, void **values) {
    for (s32 i = 0; table[i].key; i++) {
        if (table[i].flags & CSON_SKIP_ENCODE) {
            continue;
        }
        s32 result = pack_row(record, table, i, &values[i]);
        if (result == CSON_OK) {
            continue;
        }
        zof_printf("!!!!pack error on field:%s, cod=%d!!!!\n", table[i].key, result);
        if (!(table[i].flags & CSON_NULLABLE)) {
            return result;
        }
    }
    return CSON_OK;
}

s32 csonStruct2JsonObj(void *json, void *record, const reflect_item_t *table) {
    if (!json || !record || !table) {
        return CSON_ERR_ARGUMENT;
    }
    size_t rows = 0;
    while (table[rows].key) {
        rows++;
    }
    if (rows == 0) {
        return CSON_OK;
    }
    auto **values = (void **)(zof_malloc(rows * sizeof(void *)));
    if (!values) {
        return CSON_ERR_MEMORY;
    }
    s32 result = pack_rows(record, table, values);
    for (size_t i = 0; i < rows; i++) {
        if (values[i] && result != CSON_OK) {
            csomImpl.decref(values[i]);
        } else if (values[i] && csomImpl.object_set_new(json, table[i].key, values[i]) != 0) {
            result = CSON_ERR_MEMORY;
        }
    }
    zof_free(values);
    return result;
}

s32 csonStruct2JsonStr(char **text, void *record, const reflect_item_t *table) {
    if (!text || !record || !table) {
        return CSON_ERR_ARGUMENT;
    }
    void *json = csomImpl.new_object();
    if (!json) {
        return CSON_ERR_MEMORY;
    }
    s32 result = csonStruct2JsonObj(json, record, table);
    char *made = result == CSON_OK ? csomImpl.to_string(json) : nullptr;
    csomImpl.decref(json);
    if (made) {
        *text = made;
    }
    return result == CSON_OK && !made ? CSON_ERR_MEMORY : result;
}

static s32 made_or_memory(void *value, void **out) {
    *out = value;
    return value ? CSON_OK : CSON_ERR_MEMORY;
}

static s32 getJsonObject(void *record, const reflect_item_t *table, s32 index, void **out) {
    void *json = csomImpl.new_object();
    if (!json) {
        return CSON_ERR_MEMORY;
    }
    s32 result = csonStruct2JsonObj(json, cson_field(record, &table[index]), table[index].table);
    if (result != CSON_OK) {
        csomImpl.decref(json);
        return result;
    }
    *out = json;
    return CSON_OK;
}

static s32 getJsonString(void *record, const reflect_item_t *table, s32 index, void **out) {
    auto *text = (const char *)(cson_pointer_read(cson_field(record, &table[index])));
    return text ? made_or_memory(csomImpl.string(text), out) : CSON_ERR_MISSING;
}

static s32 width_refused(const char *kind, const reflect_item_t *row) {
    zof_printf("Unsupported size(=%ld) of %s.\n", (long)row->size, kind);
    zof_printf("Please check if the type of field %s in char/short/int/long long!\n", row->key);
    return CSON_ERR_RANGE;
}

static s32 getJsonInteger(void *record, const reflect_item_t *table, s32 index, void **out) {
    s64 value = 0;
    if (!cson_integer_read(cson_field(record, &table[index]), table[index].size, &value)) {
        return width_refused("integer", &table[index]);
    }
    return made_or_memory(csomImpl.integer(value), out);
}

static s32 getJsonBool(void *record, const reflect_item_t *table, s32 index, void **out) {
    s64 value = 0;
    void *field = cson_field(record, &table[index]);
    if (!cson_integer_read(field, table[index].size, &value)) {
        return width_refused("bool", &table[index]);
    }
    return made_or_memory(csomImpl.boolean(*(const u8 *)field != 0), out);
}

static s32 getJsonReal(void *record, const reflect_item_t *table, s32 index, void **out) {
    const reflect_item_t *row = &table[index];
    if (row->size != sizeof(double)) {
        zof_printf("Unsupported size(=%ld) of real.\n", (long)row->size);
        zof_printf("Please check if the type of field %s is double!\n", row->key);
        return CSON_ERR_RANGE;
    }
    double value;
    std::memcpy(&value, cson_field(record, row), sizeof value);
    return made_or_memory(csomImpl.real(value), out);
}

static s32 pack_element(void *element, const reflect_item_t *table, void **out) {
    if (cson_table_is_basic(table)) {
        return pack_row(element, table, 0, out);
    }
    void *json = csomImpl.new_object();
    s32 result = json ? csonStruct2JsonObj(json, element, table) : CSON_ERR_MEMORY;
    if (result != CSON_OK && json) {
        csomImpl.decref(json);
        return result;
    }
    *out = json;
    return result;
}

static u64 pack_elements(u8 *elements, u64 count, const reflect_item_t *row, void *array) {
    u64 done = 0;
    for (u64 i = 0; i < count; i++) {
        void *item = nullptr;
        if (pack_element(elements + row->item_size * (size_t)i, row->table, &item) == CSON_OK) {
            csomImpl.array_add(array, item);
            done++;
        } else {
            zof_printf("create array item faild.\n");
        }
    }
    return done;
}

static s32 getJsonArray(void *record, const reflect_item_t *table, s32 index, void **out) {
    const reflect_item_t *row = &table[index];
    auto *elements = (u8 *)(cson_pointer_read(cson_field(record, row)));
    const reflect_item_t *count_row = elements && row->count_key ? cson_row_find(table, row->count_key) : nullptr;
    if (!count_row || !row->table) {
        return CSON_ERR_MISSING;
    }
    u64 count = 0;
    if (!cson_count_read(record, count_row, &count)) {
        return CSON_ERR_MISSING;
    }
    void *array = csomImpl.array();
    if (!array) {
        return CSON_ERR_MEMORY;
    }
    if (pack_elements(elements, count, row, array) == 0) {
        csomImpl.decref(array);
        return CSON_ERR_MISSING;
    }
    *out = array;
    return CSON_OK;
}
