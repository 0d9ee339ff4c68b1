// What the files of the reflection engine share. Not a public header.
#ifndef ZOF_CSON_IN_H
#define ZOF_CSON_IN_H

#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_stdio.h"

ZOF_C_BEGIN

// Every worker takes the record, its table and the row's index, because an array must find its count among its sibling
// rows.
typedef s32 (*cson_decode_fn)(const void *json, void *record, const reflect_item_t *table, s32 index);
typedef s32 (*cson_pack_fn)(void *record, const reflect_item_t *table, s32 index, void **out);
typedef void (*cson_default_fn)(void *record, const reflect_item_t *table, s32 index);

// By the kind of the field; null for CSON_NULL, so check for that before a call.
extern const cson_decode_fn jsonObjProcTbl[CSON_TYPE_COUNT];
extern const cson_pack_fn jsonPackTbl[CSON_TYPE_COUNT];
extern const cson_default_fn jsonObjDefaultTbl[CSON_TYPE_COUNT];

s32 csonJsonObj2Struct(const void *json, void *record, const reflect_item_t *table);

// Compares without regard to case.
zof_bool cson_same_key(const char *a, const char *b);

// Report to the receiver of the calling thread's faults; `key` is used in the log only.
void cson_fault(const void *value, const char *key, const char *fmt, ...) ZOF_PRINTF_LIKE(3, 4);
void cson_kind_fault(const void *value, const reflect_item_t *row, const char *effect);

// Between calls with true and false the calling thread reports nothing.
void cson_fault_quiet(zof_bool on);

// As csonKeys, for an object that is known to have a fault.
void cson_members_check(const void *json, const reflect_item_t *table);

static inline void *cson_field(void *record, const reflect_item_t *row) {
    return (u8 *)record + row->offset;
}

// Returns true for the table of a bare element, which is recognised by its first key.
zof_bool cson_table_is_basic(const reflect_item_t *table);

// Returns the row with this key; null, after a message, without one.
const reflect_item_t *cson_row_find(const reflect_item_t *table, const char *key);

// Reads 1, 2, 4 or 8 bytes in native order, sign-extended; false for any other width.
zof_bool cson_integer_read(const void *field, size_t width, s64 *out);

// Reads the number of elements from a count row of the record, 0 or more: counts have no sign, whatever their width.
// Returns false, with a log line, for an unsupported width.
zof_bool cson_count_read(void *record, const reflect_item_t *count_row, u64 *out);

// Stores a value in 1, 2, 4 or 8 bytes. Signed and unsigned fields share one range, so that a colour fits 4 bytes.
s32 convertInteger(s64 value, size_t width, void *out);

// Returns the pointer in a text or array field.
void *cson_pointer_read(const void *field);
void cson_pointer_write(void *field, const void *pointer);

ZOF_C_END

#endif
