// The base of the reflection engine: the tables of bare elements, access to fields, and the walk over a record that
// printing and releasing share.
#include "zof_lib/zof_cson.h"

#include <cctype>
#include <cstring>

#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t boolReflectTbl[] = {{"0Bool", 0, 4, CSON_TRUE, 0, 0, 0, 0}, CSON_END};
const reflect_item_t integerReflectTbl[] = {{"0Integer", 0, 4, CSON_INTEGER, 0, 0, 0, 0}, CSON_END};
const reflect_item_t stringReflectTbl[] = {{"0String", 0, sizeof(char *), CSON_STRING, 0, 0, 0, 0}, CSON_END};
const reflect_item_t realReflectTbl[] = {{"0Real", 0, sizeof(double), CSON_REAL, 0, 0, 0, 0}, CSON_END};

zof_bool cson_table_is_basic(const reflect_item_t *table) {
    return table->key && table->key[0] == '0';
}

zof_bool cson_same_key(const char *a, const char *b) {
    for (; *a == *b || (((*a ^ *b) & ~0x20) == 0 && std::tolower((u8)*a) == std::tolower((u8)*b)); a++, b++) {
        if (!*a) {
            return ZOF_TRUE;
        }
    }
    return ZOF_FALSE;
}

const reflect_item_t *cson_row_find(const reflect_item_t *table, const char *key) {
    for (const reflect_item_t *row = table; row->key; row++) {
        if (std::strcmp(row->key, key) == 0) {
            return row;
        }
    }
    zof_printf("Can not find field:%s.", key);
    return nullptr;
}

template <typename T> static s64 read_as(const void *field) {
    T value;
    std::memcpy(&value, field, sizeof value);
    return value;
}

zof_bool cson_integer_read(const void *field, size_t width, s64 *out) {
    switch (width) {
    case 1:
        *out = read_as<s8>(field);
        return ZOF_TRUE;
    case 2:
        *out = read_as<s16>(field);
        return ZOF_TRUE;
    case 4:
        *out = read_as<s32>(field);
        return ZOF_TRUE;
    case 8:
        *out = read_as<s64>(field);
        return ZOF_TRUE;
    default:
        return ZOF_FALSE;
    }
}

zof_bool cson_count_read(void *record, const reflect_item_t *count_row, u64 *out) {
    s64 value = 0;
    const size_t width = count_row->size;
    if (!cson_integer_read(cson_field(record, count_row), width, &value)) {
        zof_printf("Unsupported size(=%d) of integer.\n", (int)width);
        return ZOF_FALSE;
    }
    *out = width < sizeof value ? (u64)value & ((1ull << 8 * width) - 1) : (u64)value;
    return ZOF_TRUE;
}

template <typename T> static void write_as(s64 value, void *out) {
    T narrow = (T)value;
    std::memcpy(out, &narrow, sizeof narrow);
}

s32 convertInteger(s64 value, size_t width, void *out) {
    // The project tools write the largest 32-bit number for "not set".
    if (value == INT32_MAX) {
        value = 0;
    }
    if (width == 1 && value >= INT8_MIN && value <= UINT8_MAX) {
        write_as<u8>(value, out);
    } else if (width == 2 && value >= INT16_MIN && value <= UINT16_MAX) {
        write_as<u16>(value, out);
    } else if (width == 4 && value >= INT32_MIN && value <= (s64)UINT32_MAX) {
        write_as<u32>(value, out);
    } else if (width == 8) {
        write_as<u64>(value, out);
    } else {
        return CSON_ERR_RANGE;
    }
    return CSON_OK;
}

void *cson_pointer_read(const void *field) {
    void *pointer;
    std::memcpy(&pointer, field, sizeof pointer);
    return pointer;
}

void cson_pointer_write(void *field, const void *pointer) {
    std::memcpy(field, &pointer, sizeof pointer);
}

// A null array has no elements, whatever its count says: this is the state after a release.
static void visit_elements(void *record, const reflect_item_t *row, const reflect_item_t *count_row, cson_visit visit) {
    u64 count = 0;
    if (!cson_count_read(record, count_row, &count)) {
        return;
    }
    auto *elements = (u8 *)(cson_pointer_read(cson_field(record, row)));
    for (u64 k = 0; elements && k < count; k++) {
        csonLoopProperty(elements + row->item_size * (size_t)k, row->table, visit);
    }
}

s32 csonLoopProperty(void *record, const reflect_item_t *table, cson_visit visit) {
    if (!record || !table || !visit) {
        return CSON_ERR_ARGUMENT;
    }
    for (const reflect_item_t *row = table; row->key; row++) {
        if (row->type == CSON_ARRAY) {
            const reflect_item_t *count_row = row->count_key ? cson_row_find(table, row->count_key) : nullptr;
            if (!count_row) {
                continue;
            }
            visit_elements(record, row, count_row, visit);
        } else if (row->type == CSON_OBJECT) {
            csonLoopProperty(cson_field(record, row), row->table, visit);
        }
        visit(cson_field(record, row), row);
    }
    return CSON_OK;
}

static void printPropertySub(void *field, const reflect_item_t *row) {
    s64 number = 0;
    double real = 0;
    const char *text = nullptr;
    switch (row->type) {
    case CSON_INTEGER:
    case CSON_TRUE:
    case CSON_FALSE:
        if (cson_integer_read(field, row->size, &number)) {
            zof_printf("%s:%lld\n", row->key, (long long)number);
        }
        break;
    case CSON_REAL:
        if (row->size == sizeof real) {
            std::memcpy(&real, field, sizeof real);
            zof_printf("%s:%f\n", row->key, real);
        }
        break;
    case CSON_STRING:
        text = (const char *)cson_pointer_read(field);
        zof_printf("%s:%s\n", row->key, text ? text : "");
        break;
    default:
        break;
    }
}

s32 csonPrintProperty(void *record, const reflect_item_t *table) {
    return csonLoopProperty(record, table, printPropertySub);
}

static void freePointerSub(void *field, const reflect_item_t *row) {
    if (row->type == CSON_ARRAY || row->type == CSON_STRING) {
        zof_free(cson_pointer_read(field));
        cson_pointer_write(field, nullptr);
    }
}

s32 csonFreePointer(void *record, const reflect_item_t *table) {
    return csonLoopProperty(record, table, freePointerSub);
}
