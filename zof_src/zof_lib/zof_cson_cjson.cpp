// The reflection engine's JSON library: each slot just calls cJSON.
#include <cjson/cJSON.h>

#include <cstring>

#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"

static const cJSON *as_item(const void *v) {
    return (const cJSON *)v;
}

static cJSON *as_item(void *v) {
    return (cJSON *)v;
}

// As cJSON_GetObjectItem, which calls tolower for each character and takes half of the time that decoding takes.
static void *cjson_impl_object_get(const void *obj, const char *key) {
    cJSON *member = obj ? as_item(obj)->child : nullptr;
    while (member && !(member->string && cson_same_key(member->string, key))) {
        member = member->next;
    }
    return member;
}

// cJSON stores every number as a double, so a number is always a real.
static s32 cjson_impl_typeof(const void *v) {
    switch (v ? as_item(v)->type & 0xFF : cJSON_Invalid) {
    case cJSON_False:
        return CSON_FALSE;
    case cJSON_True:
        return CSON_TRUE;
    case cJSON_Number:
        return CSON_REAL;
    case cJSON_String:
    case cJSON_Raw:
        return CSON_STRING;
    case cJSON_Array:
        return CSON_ARRAY;
    case cJSON_Object:
        return CSON_OBJECT;
    default:
        return CSON_NULL;
    }
}

static void *cjson_impl_loadb(const char *text, size_t) {
    cJSON *root = cJSON_Parse(text);
    if (!root) {
        const char *place = cJSON_GetErrorPtr();
        zof_printf("parse stop with:%s\n", place ? place : "");
    }
    return root;
}

static void cjson_impl_decref(void *v) {
    cJSON_Delete(as_item(v));
}

static const char *cjson_impl_string_value(const void *v) {
    return cJSON_GetStringValue(as_item(v));
}

static size_t cjson_impl_string_length(const void *v) {
    const char *text = cJSON_GetStringValue(as_item(v));
    return text ? std::strlen(text) : 0;
}

static s64 cjson_impl_integer_value(const void *v) {
    return v ? as_item(v)->valueint : 0;
}

static double cjson_impl_real_value(const void *v) {
    return v ? as_item(v)->valuedouble : 0;
}

static zof_bool cjson_impl_bool_value(const void *v) {
    return cJSON_IsTrue(as_item(v)) ? ZOF_TRUE : ZOF_FALSE;
}

static size_t cjson_impl_array_size(const void *v) {
    return (size_t)(cJSON_GetArraySize(as_item(v)));
}

static void *cjson_impl_array_get(const void *v, size_t index) {
    return cJSON_GetArrayItem(as_item(v), (int)index);
}

// cJSON counts from the front to find an element by index, so a loop over indexes would take quadratic time.
static void *cjson_impl_array_next(const void *v, const void *item) {
    if (item) {
        return as_item(item)->next;
    }
    return cJSON_IsArray(as_item(v)) ? as_item(v)->child : nullptr;
}

static void *cjson_impl_member_next(const void *v, const void *member) {
    return member ? as_item(member)->next : as_item(v)->child;
}

static const char *cjson_impl_member_key(const void *member) {
    return as_item(member)->string ? as_item(member)->string : "";
}

static void *cjson_impl_new(void) {
    return cJSON_CreateObject();
}

static char *cjson_impl_to_string(const void *v) {
    return cJSON_PrintUnformatted(as_item(v));
}

static void *cjson_impl_integer(s64 value) {
    cJSON *item = cJSON_CreateNumber(0);
    if (item) {
        cJSON_SetNumberHelper(item, (double)value);
    }
    return item;
}

static void *cjson_impl_string(const char *text) {
    return cJSON_CreateString(text);
}

static void *cjson_impl_bool(zof_bool value) {
    return cJSON_CreateBool(value != ZOF_FALSE);
}

static void *cjson_impl_real(double value) {
    return cJSON_CreateNumber(value);
}

static void *cjson_impl_array(void) {
    return cJSON_CreateArray();
}

static s32 cjson_impl_array_add(void *array, void *item) {
    cJSON_AddItemToArray(as_item(array), as_item(item));
    return 0;
}

static s32 cjson_impl_object_set_new(void *obj, const char *key, void *item) {
    if (cJSON_AddItemToObject(as_item(obj), key, as_item(item))) {
        return 0;
    }
    cJSON_Delete(as_item(item));
    return -1;
}

const cson_interface csomImpl = {
    .object_get = cjson_impl_object_get,
    .type_of = cjson_impl_typeof,
    .loadb = cjson_impl_loadb,
    .decref = cjson_impl_decref,
    .string_value = cjson_impl_string_value,
    .string_length = cjson_impl_string_length,
    .integer_value = cjson_impl_integer_value,
    .real_value = cjson_impl_real_value,
    .bool_value = cjson_impl_bool_value,
    .array_size = cjson_impl_array_size,
    .array_get = cjson_impl_array_get,
    .array_next = cjson_impl_array_next,
    .new_object = cjson_impl_new,
    .to_string = cjson_impl_to_string,
    .integer = cjson_impl_integer,
    .string = cjson_impl_string,
    .boolean = cjson_impl_bool,
    .real = cjson_impl_real,
    .array = cjson_impl_array,
    .array_add = cjson_impl_array_add,
    .object_set_new = cjson_impl_object_set_new,
    .member_next = cjson_impl_member_next,
    .member_key = cjson_impl_member_key,
};
