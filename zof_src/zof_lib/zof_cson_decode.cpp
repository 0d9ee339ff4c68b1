// From JSON to records. A row that fails leaves its field alone: a control's style is decoded over a copy of its
// theme's style and must change only the keys that it has.
#include <cstring>

#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static s32 parseJsonObject(const void *json, void *record, const reflect_item_t *table, s32 index);
static s32 parseJsonArray(const void *json, void *record, const reflect_item_t *table, s32 index);
static s32 parseJsonString(const void *json, void *record, const reflect_item_t *table, s32 index);
static s32 parseJsonInteger(const void *json, void *record, const reflect_item_t *table, s32 index);
static s32 parseJsonReal(const void *json, void *record, const reflect_item_t *table, s32 index);
static s32 parseJsonBool(const void *json, void *record, const reflect_item_t *table, s32 index);

static void parseJsonObjectDefault(void *record, const reflect_item_t *table, s32 index);
static void parseJsonArrayDefault(void *record, const reflect_item_t *table, s32 index);
static void parseJsonStringDefault(void *record, const reflect_item_t *table, s32 index);
static void parseJsonIntegerDefault(void *record, const reflect_item_t *table, s32 index);
static void parseJsonRealDefault(void *record, const reflect_item_t *table, s32 index);

const cson_decode_fn jsonObjProcTbl[CSON_TYPE_COUNT] = {
    parseJsonObject, parseJsonArray, parseJsonString, parseJsonInteger,
    parseJsonReal,   parseJsonBool,  parseJsonBool,   nullptr,
};

// Zero a field. Not used by the decoding loop: a missing key must not reset the field.
const cson_default_fn jsonObjDefaultTbl[CSON_TYPE_COUNT] = {
    parseJsonObjectDefault, parseJsonArrayDefault,   parseJsonStringDefault,  parseJsonIntegerDefault,
    parseJsonRealDefault,   parseJsonIntegerDefault, parseJsonIntegerDefault, nullptr,
};

s32 csonJsonStr2Struct(const void *json, void *record, const reflect_item_t *table) {
    return json ? csonJsonObj2Struct(json, record, table) : CSON_ERR_NO_JSON;
}

// Numbers of either kind fit either number row, and true and false fit either boolean row; nothing else is mixed.
static bool row_accepts(size_t row_type, s32 json_type) {
    auto is_number = [](size_t type) { return type == CSON_INTEGER || type == CSON_REAL; };
    auto is_bool = [](size_t type) { return type == CSON_TRUE || type == CSON_FALSE; };
    auto type = (size_t)json_type;
    return row_type == type || (is_number(row_type) && is_number(type)) || (is_bool(row_type) && is_bool(type));
}

static cson_color_fn color_of_name;

void csonColorsFrom(cson_color_fn fn) {
    color_of_name = fn;
}

s32 csonTextRead(const reflect_item_t *row, const char *text, s64 *value) {
    if (row->flags & CSON_COLORS && text[0] == '$') {
        return color_of_name ? color_of_name(text + 1, value) : -1;
    }
    if (row->flags & CSON_COLORS) {
        return zof_color_read(text, value);
    }
    return row->names ? zof_names_read(row->names, (row->flags & CSON_ADDS) != 0, text, value) : -1;
}

static s32 decode_name(const void *json, void *record, const reflect_item_t *row) {
    s64 value = 0;
    if (csonTextRead(row, csomImpl.string_value(json), &value) != 0) {
        csonNameFault(json, row, "the default is used");
        return CSON_ERR_TYPE;
    }
    return convertInteger(value, row->size, cson_field(record, row));
}

// Decodes a value for a row; null for a missing one.
static s32 decode_row(const void *value, void *record, const reflect_item_t *table, s32 index) {
    const reflect_item_t *row = &table[index];
    if (!value) {
        return CSON_ERR_MISSING;
    }
    if (row->type >= CSON_NULL) {
        return CSON_ERR_TYPE;
    }
    const s32 type = csomImpl.type_of(value);
    if (!row_accepts(row->type, type)) {
        if (type == CSON_STRING && (row->names || row->flags & CSON_COLORS)) {
            return decode_name(value, record, row);
        }
        cson_kind_fault(value, row, "the default is used");
        return CSON_ERR_TYPE;
    }
    return jsonObjProcTbl[row->type](value, record, table, index);
}

// Reports a low end that is above the next row's field, at the high end.
static void ends_check(const void *json, void *record, const reflect_item_t *low) {
    s64 from = 0;
    s64 to = 0;
    if (!cson_integer_read(cson_field(record, low), low->size, &from) ||
        !cson_integer_read(cson_field(record, low + 1), low[1].size, &to) || from <= to) {
        return;
    }
    const void *value = csomImpl.object_get(json, low[1].key);
    cson_fault(value ? value : json, low[1].key, "%s, %lld, is not below %s, %lld", low->key, (long long)from,
               low[1].key, (long long)to);
}

// Returns the code of the first failing row that is not nullable, and counts the keys that were found.
static s32 decode_rows(const void *json, void *record, const reflect_item_t *table, size_t *found) {
    for (s32 index = 0; table[index].key; index++) {
        const size_t flags = table[index].flags;
        const void *value = csomImpl.object_get(json, table[index].key);
        *found += value != nullptr;
        if (flags & CSON_SKIP_DECODE) {
            continue;
        }
        const s32 result = decode_row(value, record, table, index);
        if (result != CSON_OK && !(flags & CSON_NULLABLE)) {
            return result;
        }
        if (index > 0 && table[index - 1].flags & CSON_LOW_END) {
            ends_check(json, record, &table[index - 1]);
        }
    }
    return CSON_OK;
}

// The table has only some of the object's keys, so the others are not checked.
s32 csonPeek(const void *json, void *record, const reflect_item_t *table) {
    size_t found = 0;
    cson_fault_quiet(ZOF_TRUE);
    const s32 result = decode_rows(json, record, table, &found);
    cson_fault_quiet(ZOF_FALSE);
    return result;
}

s32 csonJsonObj2Struct(const void *json, void *record, const reflect_item_t *table) {
    if (!json || !record || !table) {
        return CSON_ERR_ARGUMENT;
    }
    size_t found = 0;
    const s32 result = decode_rows(json, record, table, &found);
    if (csomImpl.type_of(json) != CSON_OBJECT) {
        cson_fault(json, "", "expected an object; it is ignored");
    } else if (found != csomImpl.array_size(json)) {
        cson_members_check(json, table);
    }
    return result;
}

static s32 parseJsonObject(const void *json, void *record, const reflect_item_t *table, s32 index) {
    return csonJsonObj2Struct(json, cson_field(record, &table[index]), table[index].table);
}

static s32 parseJsonString(const void *json, void *record, const reflect_item_t *table, s32 index) {
    const char *text = csomImpl.string_value(json);
    if (!text) {
        return CSON_ERR_MISSING;
    }
    char *copy = zof_text_copy_n(text, csomImpl.string_length(json));
    if (!copy) {
        return CSON_ERR_MEMORY;
    }
    cson_pointer_write(cson_field(record, &table[index]), copy);
    return CSON_OK;
}

// The double 2^63 itself does not fit 64 bits; every comparison with a NaN is false, so NaN is refused too.
static s32 integer_of(const void *json, s64 *out) {
    double real = 0;
    switch (csomImpl.type_of(json)) {
    case CSON_INTEGER:
        *out = csomImpl.integer_value(json);
        return CSON_OK;
    case CSON_TRUE:
        *out = 1;
        return CSON_OK;
    case CSON_FALSE:
        *out = 0;
        return CSON_OK;
    case CSON_REAL:
        real = csomImpl.real_value(json);
        if (!(real >= -9223372036854775808.0 && real < 9223372036854775808.0)) {
            return CSON_ERR_RANGE;
        }
        *out = (s64)real;
        return CSON_OK;
    default:
        return CSON_ERR_ARGUMENT;
    }
}

// INT32_MAX stands for 0, see convertInteger.
static bool row_has(const reflect_item_t *row, s64 value) {
    const size_t values = row->flags >> CSON_VALUES_SHIFT;
    return values == 0 || value == INT32_MAX || (value >= 0 && (u64)value < values);
}

static s32 range_fault(const void *json, const reflect_item_t *row) {
    const size_t values = row->flags >> CSON_VALUES_SHIFT;
    const u32 bits = 8 * (u32)row->size;
    const s64 most = values ? (s64)values - 1 : bits < 64 ? (s64)((1ull << bits) - 1) : INT64_MAX;
    const s64 least = values ? 0 : bits < 64 ? -((s64)1 << (bits - 1)) : INT64_MIN;
    cson_fault(json, row->key, "%.15g is not from %lld to %lld; the default is used", csomImpl.real_value(json),
               (long long)least, (long long)most);
    return CSON_ERR_RANGE;
}

static s32 parseJsonInteger(const void *json, void *record, const reflect_item_t *table, s32 index) {
    const reflect_item_t *row = &table[index];
    s64 value = 0;
    s32 result = integer_of(json, &value);
    if (result == CSON_OK) {
        result = row_has(row, value) ? convertInteger(value, row->size, cson_field(record, row)) : CSON_ERR_RANGE;
    }
    return result == CSON_ERR_RANGE ? range_fault(json, row) : result;
}

static s32 parseJsonBool(const void *json, void *record, const reflect_item_t *table, s32 index) {
    return parseJsonInteger(json, record, table, index);
}

static s32 parseJsonReal(const void *json, void *record, const reflect_item_t *table, s32 index) {
    const reflect_item_t *row = &table[index];
    if (row->size != sizeof(double)) {
        zof_printf("Unsupported size(=%ld) of real.\n", (long)row->size);
        zof_printf("Please check if the type of field %s is double!\n", row->key);
        return CSON_ERR_RANGE;
    }
    s32 type = csomImpl.type_of(json);
    if (type != CSON_REAL && type != CSON_INTEGER && type != CSON_TRUE && type != CSON_FALSE) {
        return CSON_ERR_ARGUMENT;
    }
    double value = type == CSON_REAL ? csomImpl.real_value(json) : (double)csomImpl.integer_value(json);
    std::memcpy(cson_field(record, row), &value, sizeof value);
    return CSON_OK;
}

static s32 decode_element(const void *json, void *slot, const reflect_item_t *table) {
    if (!cson_table_is_basic(table)) {
        return csonJsonObj2Struct(json, slot, table);
    }
    const s32 result = table->type < CSON_NULL ? jsonObjProcTbl[table->type](json, slot, table, 0) : CSON_ERR_TYPE;
    if (result != CSON_OK && !row_accepts(table->type, csomImpl.type_of(json))) {
        cson_kind_fault(json, table, "it is left out");
    }
    return result;
}

// Releases what a failed element had allocated and zeroes the slot before the next element uses it.
static void element_reset(void *slot, const reflect_item_t *row) {
    csonFreePointer(slot, row->table);
    for (s32 i = 0; row->table[i].key; i++) {
        if (row->table[i].type < CSON_NULL) {
            jsonObjDefaultTbl[row->table[i].type](slot, row->table, i);
        }
    }
}

// Good elements close up: the slot number is the number of successes so far.
static size_t decode_elements(const void *json, u8 *elements, size_t count, const reflect_item_t *row) {
    size_t done = 0;
    const void *item = csomImpl.array_next(json, nullptr);
    for (size_t i = 0; i < count && item; i++, item = csomImpl.array_next(json, item)) {
        u8 *slot = elements + row->item_size * done;
        if (decode_element(item, slot, row->table) == CSON_OK) {
            done++;
        } else {
            element_reset(slot, row);
        }
    }
    return done;
}

static s32 array_empty(void *record, const reflect_item_t *table, const reflect_item_t *row) {
    const reflect_item_t *count_row = row->count_key ? cson_row_find(table, row->count_key) : nullptr;
    if (count_row) {
        convertInteger(0, count_row->size, cson_field(record, count_row));
    }
    return CSON_OK;
}

static s32 parseJsonArray(const void *json, void *record, const reflect_item_t *table, s32 index) {
    const reflect_item_t *row = &table[index];
    size_t size = csomImpl.array_size(json);
    if (size == 0) {
        return array_empty(record, table, row);
    }
    const reflect_item_t *count_row = row->count_key ? cson_row_find(table, row->count_key) : nullptr;
    if (!count_row || !row->table) {
        return CSON_ERR_MISSING;
    }
    if (row->item_size == 0 || size > SIZE_MAX / row->item_size) {
        return CSON_ERR_MEMORY;
    }
    auto *elements = (u8 *)zof_malloc(size * row->item_size);
    if (!elements) {
        return CSON_ERR_MEMORY;
    }
    size_t done = decode_elements(json, elements, size, row);
    void *count_field = cson_field(record, count_row);
    if (done == 0 || convertInteger((s64)done, count_row->size, count_field) != CSON_OK) {
        for (size_t i = 0; i < done; i++) {
            csonFreePointer(elements + row->item_size * i, row->table);
        }
        zof_free(elements);
        convertInteger(0, count_row->size, count_field);
        cson_pointer_write(cson_field(record, row), nullptr);
        return CSON_ERR_MISSING;
    }
    cson_pointer_write(cson_field(record, row), elements);
    return CSON_OK;
}

static void parseJsonObjectDefault(void *record, const reflect_item_t *table, s32 index) {
    const reflect_item_t *nested = table[index].table;
    for (s32 i = 0; nested && nested[i].key; i++) {
        if (nested[i].type < CSON_NULL) {
            jsonObjDefaultTbl[nested[i].type](cson_field(record, &table[index]), nested, i);
        }
    }
}

static void parseJsonArrayDefault(void *record, const reflect_item_t *table, s32 index) {
    cson_pointer_write(cson_field(record, &table[index]), nullptr);
}

static void parseJsonStringDefault(void *record, const reflect_item_t *table, s32 index) {
    cson_pointer_write(cson_field(record, &table[index]), nullptr);
}

static void parseJsonIntegerDefault(void *record, const reflect_item_t *table, s32 index) {
    convertInteger(0, table[index].size, cson_field(record, &table[index]));
}

static void parseJsonRealDefault(void *record, const reflect_item_t *table, s32 index) {
    if (table[index].size == sizeof(double)) {
        std::memset(cson_field(record, &table[index]), 0, sizeof(double));
    }
}
