// The JSON reflection engine: constant tables map JSON objects to plain records and back. One table serves decoding,
// encoding, printing and releasing. Any thread may use the engine on its own tree and record.
#ifndef ZOF_CSON_H
#define ZOF_CSON_H

#include <stddef.h>

#include "zof_lib/zof_names.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Kinds of JSON values and of fields; also the index of the engine's dispatch tables.
enum {
    CSON_OBJECT,  // nested record, inside its parent
    CSON_ARRAY,   // pointer to an allocated array; its count is a field of its own
    CSON_STRING,  // pointer to an allocated copy
    CSON_INTEGER, // 1, 2, 4 or 8 bytes
    CSON_REAL,    // double
    CSON_TRUE,    // 1, 2, 4 or 8 bytes, 1 or 0
    CSON_FALSE,   // as CSON_TRUE
    CSON_NULL,    // JSON null and anything unknown; no field can be of this kind
    CSON_TYPE_COUNT
};

enum {
    CSON_NULLABLE = 1,    // a failure of this row does not stop the record
    CSON_SKIP_DECODE = 2, // the row is for encoding only
    CSON_SKIP_ENCODE = 4, // the row is for decoding only
    CSON_LOW_END = 8,     // an integer that should not be above that of the next row
    CSON_ADDS = 16,       // an integer: the numbers of its names are added up
    CSON_COLORS = 32,     // an integer: a colour, which may be a text, "#RRGGBB" or "#RGB"
    CSON_VALUES_SHIFT = 8 // from this bit on, for an enumeration: how many values it has, which count from 0
};

// What the entries below return.
enum {
    CSON_OK = 0,
    CSON_ERR_MEMORY = -1,
    CSON_ERR_TYPE = -2,    // the JSON value's kind does not fit the row
    CSON_ERR_MISSING = -3, // no such key, no count row, or an array without one good element
    CSON_ERR_NO_JSON = -4,
    CSON_ERR_ARGUMENT = -5, // null record or table, or a value of an unexpected kind
    CSON_ERR_RANGE = -6     // number out of range, or a width that the engine does not support
};

// A row of a table; the table ends with a row without a key. Keys match case-insensitively.
typedef struct reflect_item {
    const char *key;
    size_t offset;                    // of the field in the record
    size_t size;                      // of the field; of the pointer for texts and arrays
    size_t type;                      // CSON_OBJECT ...
    const struct reflect_item *table; // object: the nested record's; array: the element's
    size_t item_size;                 // array: bytes of one element
    const char *count_key;            // array: key of the row in the same table that holds the count
    size_t flags;                     // CSON_NULLABLE ...
    const zof_name_t *names;          // OPTIONAL: integer: names that a file may have in place of the number
} reflect_item_t;

// One row of a table: the record's type, the field, whose name is also the key. All but one row of the project are
// nullable.
#define CSON_SCALAR(T, field, code) \
    { #field, offsetof(T, field), sizeof(((T *)0)->field), code, 0, 0, 0, CSON_NULLABLE }
#define CSON_INT(T, field) CSON_SCALAR(T, field, CSON_INTEGER)
// An integer with names. `values`: how many valid numbers there are, which count from 0; 0 if any number is valid.
#define CSON_NAMED(T, field, values, flags, names)                                  \
    {                                                                               \
        #field, offsetof(T, field), sizeof(((T *)0)->field), CSON_INTEGER, 0, 0, 0, \
            CSON_NULLABLE | (flags) | (size_t)(values) << CSON_VALUES_SHIFT, names  \
    }
#define CSON_ENUM(T, field, values, names) CSON_NAMED(T, field, values, 0, names)
#define CSON_SUM(T, field, values, names) CSON_NAMED(T, field, values, CSON_ADDS, names)
#define CSON_COLOR(T, field) CSON_NAMED(T, field, 0, CSON_COLORS, 0)
#define CSON_BOOL(T, field) CSON_SCALAR(T, field, CSON_TRUE)
#define CSON_TEXT(T, field) CSON_SCALAR(T, field, CSON_STRING)
#define CSON_DOUBLE(T, field) CSON_SCALAR(T, field, CSON_REAL)
#define CSON_OBJ(T, field, tbl) \
    { #field, offsetof(T, field), sizeof(((T *)0)->field), CSON_OBJECT, tbl, 0, 0, CSON_NULLABLE }
#define CSON_ARR(T, field, tbl, item, count) \
    { #field, offsetof(T, field), sizeof(((T *)0)->field), CSON_ARRAY, tbl, item, count, CSON_NULLABLE }
// Two rows: the ends of a range, which are reported when they are in the wrong order.
#define CSON_ENDS(T, low, high)                                                                           \
    {#low, offsetof(T, low), sizeof(((T *)0)->low), CSON_INTEGER, 0, 0, 0, CSON_NULLABLE | CSON_LOW_END}, \
        CSON_INT(T, high)
// A key that is known, but not decoded.
#define CSON_KNOWN(name) \
    { name, 0, 0, CSON_NULL, 0, 0, 0, CSON_NULLABLE | CSON_SKIP_DECODE | CSON_SKIP_ENCODE }
#define CSON_END \
    { 0, 0, 0, 0, 0, 0, 0, 0, 0 }

// Element tables of arrays whose elements are bare values. Their keys begin with "0", unlike any field name.
extern const reflect_item_t boolReflectTbl[];
extern const reflect_item_t integerReflectTbl[];
extern const reflect_item_t stringReflectTbl[];
extern const reflect_item_t realReflectTbl[];

// The JSON library behind the engine, so that it can be replaced. All slots MANDATORY; `csomImpl` uses cJSON.
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
    void *(*array_next)(const void *v, const void *item); // after `item`, the first one for null; null at the end
    void *(*new_object)(void);
    char *(*to_string)(const void *v);
    void *(*integer)(s64 value);
    void *(*string)(const char *text);
    void *(*boolean)(zof_bool value);
    void *(*real)(double value);
    void *(*array)(void);
    s32 (*array_add)(void *array, void *item);
    s32 (*object_set_new)(void *obj, const char *key, void *item); // 0, or -1 with the item released
    void *(*member_next)(const void *obj, const void *member);     // as array_next, over the members of an object
    const char *(*member_key)(const void *member);
} cson_interface;

extern const cson_interface csomImpl;

typedef void (*cson_visit)(void *field, const reflect_item_t *row);

// Fills `record` from a parsed JSON object, row by row. A key that is missing or does not fit leaves its field
// unchanged, so that one object can overlay another. Numbers are truncated towards zero; 2147483647 reads as 0. A text
// in place of a number is read where the row has names or is a colour. A value of the wrong kind, a number out of range
// and an unknown name count as missing. They are reported as faults, and so are keys without a row, keys given twice,
// and ends in the wrong order. Texts and arrays
// are allocated with zof_malloc and belong to the record; what a field pointed to before is not released. Bad elements
// of an array are dropped and the following ones close up. The tree may be deleted afterwards. Returns CSON_OK, or the
// code of the first failing row that is not nullable; the rows after it are not read then.
s32 csonJsonStr2Struct(const void *json, void *record, const reflect_item_t *table);

// The same without reports, for a part of an object that is decoded again as a whole.
s32 csonPeek(const void *json, void *record, const reflect_item_t *table);

// Returns 0 and the number of a row for its value in a file, which is a name or a colour as a text; -1, with *value
// unchanged, if the row has no such text.
s32 csonTextRead(const reflect_item_t *row, const char *text, s64 *value);

// Finds the colour of a name, for texts such as "$accent". Returns 0, or -1 with *value unchanged.
typedef s32 (*cson_color_fn)(const char *name, s64 *value);

// Sets the function that resolves colour names, for all threads. Null, the default, means that no names exist.
void csonColorsFrom(cson_color_fn fn);

// Reports a text that csonTextRead does not know, with the names that it does, and what follows from it.
void csonNameFault(const void *value, const reflect_item_t *row, const char *effect);

// Reports the keys of an object that have no row, and those given twice.
void csonKeys(const void *json, const reflect_item_t *table);

// Receives a fault: the value in the tree, and what is wrong with it, valid during the call.
typedef void (*cson_fault_fn)(const void *value, const char *text);

// Sets who receives the faults that the calling thread finds; null: they are logged with their key. Returns the former
// one.
cson_fault_fn csonFaultTo(cson_fault_fn fn);

// Adds the record's fields to an existing JSON object. A nullable row that fails is left out and logged. For any other
// failing row its code is returned, with the object unchanged. Returns CSON_ERR_MEMORY when a field cannot be added.
s32 csonStruct2JsonObj(void *json, void *record, const reflect_item_t *table);

// Returns the record in *text as unformatted JSON, which the caller releases with cJSON_free. On failure *text is
// unchanged.
s32 csonStruct2JsonStr(char **text, void *record, const reflect_item_t *table);

// Calls `visit` for every field, depth first: the elements of an array before the array, the fields of a nested record
// before the record. Returns 0, or CSON_ERR_ARGUMENT for null.
s32 csonLoopProperty(void *record, const reflect_item_t *table, cson_visit visit);

// Prints every number, boolean and text of the record, one per line.
s32 csonPrintProperty(void *record, const reflect_item_t *table);

// Releases every text and array of the record and sets the pointers to null, so that a second call is harmless. The
// record itself stays the caller's.
s32 csonFreePointer(void *record, const reflect_item_t *table);

ZOF_C_END

#endif
