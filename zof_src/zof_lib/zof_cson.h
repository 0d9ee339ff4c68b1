// The JSON reflection engine: constant tables map JSON objects to plain records and back.
#ifndef ZOF_CSON_H
#define ZOF_CSON_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum { CSON_OBJECT, CSON_ARRAY, CSON_STRING, CSON_INTEGER, CSON_REAL, CSON_TRUE, CSON_FALSE, CSON_NULL, CSON_TYPE_COUNT };

enum { CSON_NULLABLE = 1, CSON_SKIP_DECODE = 2, CSON_SKIP_ENCODE = 4 };

typedef struct reflect_item {
    const char *key;
    size_t offset;
    size_t size;
    size_t type;
    const struct reflect_item *table;
    size_t item_size;
    const char *count_key;
    size_t flags;
} reflect_item_t;

// One row of a table: the record's type, the field, which is also the key. All but one row of the project are nullable.
#define CSON_SCALAR(T, field, code) {#field, offsetof(T, field), sizeof(((T *)0)->field), code, 0, 0, 0, CSON_NULLABLE}
#define CSON_INT(T, field) CSON_SCALAR(T, field, CSON_INTEGER)
#define CSON_BOOL(T, field) CSON_SCALAR(T, field, CSON_TRUE)
#define CSON_TEXT(T, field) CSON_SCALAR(T, field, CSON_STRING)
#define CSON_DOUBLE(T, field) CSON_SCALAR(T, field, CSON_REAL)
#define CSON_OBJ(T, field, tbl) {#field, offsetof(T, field), sizeof(((T *)0)->field), CSON_OBJECT, tbl, 0, 0, CSON_NULLABLE}
#define CSON_ARR(T, field, tbl, item, count) \
    {#field, offsetof(T, field), sizeof(((T *)0)->field), CSON_ARRAY, tbl, item, count, CSON_NULLABLE}
#define CSON_END {0, 0, 0, 0, 0, 0, 0, 0}

extern const reflect_item_t boolReflectTbl[];
extern const reflect_item_t integerReflectTbl[];
extern const reflect_item_t stringReflectTbl[];
extern const reflect_item_t realReflectTbl[];

// The JSON library behind the engine; `csomImpl` is filled with cJSON.
typedef struct {
    void *(*object_get)(const void *obj, const char *key);
    s32 (*type_of)(const void *v);
    void *(*loadb)(const char *text, size_t len);
    void (*decref)(void *v);
    const char *(*string_value)(const void *v);
    size_t (*string_length)(const void *v);
    s64 (*integer_value)(const void *v);
    double (*real_value)(const void *v);
    zof_bool (*bool_value)(const void *v);
    size_t (*array_size)(const void *v);
    void *(*array_get)(const void *v, size_t index);
    void *(*new_object)(void);
    char *(*to_string)(const void *v);
    void *(*integer)(s64 value);
    void *(*string)(const char *text);
    void *(*boolean)(zof_bool value);
    void *(*real)(double value);
    void *(*array)(void);
    s32 (*array_add)(void *array, void *item);
    s32 (*object_set_new)(void *obj, const char *key, void *item);
} cson_interface;

extern const cson_interface csomImpl;

typedef void (*cson_visit)(void *field, const reflect_item_t *row);

s32 csonJsonStr2Struct(const void *json, void *record, const reflect_item_t *table);
s32 csonStruct2JsonObj(void *json, void *record, const reflect_item_t *table);
s32 csonStruct2JsonStr(char **text, void *record, const reflect_item_t *table);
s32 csonLoopProperty(void *record, const reflect_item_t *table, cson_visit visit);
s32 csonPrintProperty(void *record, const reflect_item_t *table);
s32 csonFreePointer(void *record, const reflect_item_t *table);

ZOF_C_END

#endif
