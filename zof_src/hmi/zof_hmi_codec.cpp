// The codec is one table of widths and one of lists: a new kind of record is just another row here.
#include "hmi/zof_hmi_codec.h"

#include <stddef.h>
#include <string.h>

#include "drv/zof_drv_rtc.h"
#include "drv/zof_drv_touch.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/zof_util.h"

static constexpr u8 widths[] = {0, 1, 1, 2, 2, 4, 4};
static_assert(sizeof(widths) == ZOF_HMI_T_COUNT);

#define S8(T, field) \
    { offsetof(T, field), ZOF_HMI_T_S8 }
#define U8(T, field) \
    { offsetof(T, field), ZOF_HMI_T_U8 }
#define S16(T, field) \
    { offsetof(T, field), ZOF_HMI_T_S16 }
#define U16(T, field) \
    { offsetof(T, field), ZOF_HMI_T_U16 }
#define S32(T, field) \
    { offsetof(T, field), ZOF_HMI_T_S32 }
#define U32(T, field) \
    { offsetof(T, field), ZOF_HMI_T_U32 }
#define STR(T, field) \
    { offsetof(T, field), ZOF_HMI_T_STR }

// clang-format off
static constexpr zof_hmi_field_t one_s8[] = {{0, ZOF_HMI_T_S8}};
static constexpr zof_hmi_field_t one_u8[] = {{0, ZOF_HMI_T_U8}};
static constexpr zof_hmi_field_t one_u16[] = {{0, ZOF_HMI_T_U16}};
static constexpr zof_hmi_field_t one_s16[] = {{0, ZOF_HMI_T_S16}};
static constexpr zof_hmi_field_t one_u32[] = {{0, ZOF_HMI_T_U32}};
static constexpr zof_hmi_field_t one_s32[] = {{0, ZOF_HMI_T_S32}};
static constexpr zof_hmi_field_t one_str[] = {{0, ZOF_HMI_T_STR}};
static constexpr zof_hmi_field_t u8str[] = {U8(zof_hmi_u8str_t, a), STR(zof_hmi_u8str_t, text)};
static constexpr zof_hmi_field_t u8u16[] = {U8(zof_hmi_u8u16_t, a), U16(zof_hmi_u8u16_t, b)};
static constexpr zof_hmi_field_t u16str[] = {U16(zof_hmi_u16str_t, a), STR(zof_hmi_u16str_t, text)};
static constexpr zof_hmi_field_t u16u16str[] = {
    U16(zof_hmi_u16u16str_t, a), U16(zof_hmi_u16u16str_t, b), STR(zof_hmi_u16u16str_t, text)};
static constexpr zof_hmi_field_t u8u32[] = {U8(zof_hmi_u8u32_t, a), U32(zof_hmi_u8u32_t, b)};
static constexpr zof_hmi_field_t u8u16u16[] = {
    U8(zof_hmi_u8u16u16_t, a), U16(zof_hmi_u8u16u16_t, b), U16(zof_hmi_u8u16u16_t, c)};
static constexpr zof_hmi_field_t u16u16[] = {U16(zof_hmi_u16u16_t, a), U16(zof_hmi_u16u16_t, b)};
static constexpr zof_hmi_field_t s16s16[] = {S16(zof_hmi_s16s16_t, a), S16(zof_hmi_s16s16_t, b)};
static constexpr zof_hmi_field_t u16u32[] = {U16(zof_hmi_u16u32_t, a), U32(zof_hmi_u16u32_t, b)};
static constexpr zof_hmi_field_t u8s16s16[] = {
    U8(zof_hmi_u8s16s16_t, a), S16(zof_hmi_u8s16s16_t, b), S16(zof_hmi_u8s16s16_t, c)};
static constexpr zof_hmi_field_t u32u16u8u8[] = {
    U32(zof_hmi_u32u16u8u8_t, a), U16(zof_hmi_u32u16u8u8_t, b), U8(zof_hmi_u32u16u8u8_t, c),
    U8(zof_hmi_u32u16u8u8_t, d)};
static constexpr zof_hmi_field_t u16u16u16u16[] = {
    U16(zof_hmi_u16u16u16u16_t, a), U16(zof_hmi_u16u16u16u16_t, b),
    U16(zof_hmi_u16u16u16u16_t, c), U16(zof_hmi_u16u16u16u16_t, d)};
static constexpr zof_hmi_field_t rtc[] = {
    U16(zof_rtc_time_t, year), U8(zof_rtc_time_t, month), U8(zof_rtc_time_t, day),
    U8(zof_rtc_time_t, hour), U8(zof_rtc_time_t, minute), U8(zof_rtc_time_t, second)};
static constexpr zof_hmi_field_t ctrl_id[] = {U16(zof_hmi_ctrl_id_t, view_id), U16(zof_hmi_ctrl_id_t, ctrl_id)};
static constexpr zof_hmi_field_t stdby[] = {
    U16(zof_func_standby_t, stdby_view), U16(zof_func_standby_t, stdby_time), U8(zof_func_standby_t, stdby_bright),
    U16(zof_func_standby_t, off_time), U8(zof_func_standby_t, off_bright), U8(zof_func_standby_t, on_bright),
    U16(zof_func_standby_t, on_view)};
static constexpr zof_hmi_field_t tabel[] = {
    U32(zof_hmi_tabel_t, a), U8(zof_hmi_tabel_t, b), U8(zof_hmi_tabel_t, c), U8(zof_hmi_tabel_t, d),
    U32(zof_hmi_tabel_t, e)};
static constexpr zof_hmi_field_t state[] = {
    U8(zof_hmi_state_t, seq), U8(zof_hmi_state_t, event), S32(zof_hmi_state_t, number), STR(zof_hmi_state_t, text)};
static constexpr zof_hmi_field_t page[] = {
    U8(zof_hmi_page_t, seq), U8(zof_hmi_page_t, more), U16(zof_hmi_page_t, ctrl_id), S32(zof_hmi_page_t, number),
    STR(zof_hmi_page_t, text)};

static_assert(sizeof(zof_hmi_state_t) <= ZOF_HMI_RECORD_SIZE && sizeof(zof_hmi_page_t) <= ZOF_HMI_RECORD_SIZE);
static_assert(sizeof(zof_hmi_u16u16str_t) <= ZOF_HMI_RECORD_SIZE && sizeof(zof_hmi_u8str_t) <= ZOF_HMI_RECORD_SIZE);
static_assert(sizeof(zof_func_standby_t) <= ZOF_HMI_RECORD_SIZE && sizeof(zof_hmi_tabel_t) <= ZOF_HMI_RECORD_SIZE);
static_assert(offsetof(zof_touch_t, x) == offsetof(zof_hmi_u8u16u16_t, b) &&
              offsetof(zof_touch_t, y) == offsetof(zof_hmi_u8u16u16_t, c));

#define LIST(fields) {sizeof(fields) / sizeof((fields)[0]), fields}
const zof_hmi_rec_t zof_hmi_none_t_tbl = {0, nullptr};
const zof_hmi_rec_t zof_hmi_one_s8_t_tbl = LIST(one_s8);
const zof_hmi_rec_t zof_hmi_one_u8_t_tbl = LIST(one_u8);
const zof_hmi_rec_t zof_hmi_one_u16_t_tbl = LIST(one_u16);
const zof_hmi_rec_t zof_hmi_one_s16_t_tbl = LIST(one_s16);
const zof_hmi_rec_t zof_hmi_one_u32_t_tbl = LIST(one_u32);
const zof_hmi_rec_t zof_hmi_one_s32_t_tbl = LIST(one_s32);
const zof_hmi_rec_t zof_hmi_one_str_t_tbl = LIST(one_str);
const zof_hmi_rec_t zof_hmi_param_u8str_t_tbl = LIST(u8str);
const zof_hmi_rec_t zof_hmi_param_u8u16_t_tbl = LIST(u8u16);
const zof_hmi_rec_t zof_hmi_param_u16str_t_tbl = LIST(u16str);
const zof_hmi_rec_t zof_hmi_param_u16u16str_t_tbl = LIST(u16u16str);
const zof_hmi_rec_t zof_hmi_param_u8u32_t_tbl = LIST(u8u32);
const zof_hmi_rec_t zof_hmi_param_u8u16u16_t_tbl = LIST(u8u16u16);
const zof_hmi_rec_t zof_hmi_param_u16u16_t_tbl = LIST(u16u16);
const zof_hmi_rec_t zof_hmi_param_s16s16_t_tbl = LIST(s16s16);
const zof_hmi_rec_t zof_hmi_param_u16u32_t_tbl = LIST(u16u32);
const zof_hmi_rec_t zof_hmi_param_u8s16s16_t_tbl = LIST(u8s16s16);
const zof_hmi_rec_t zof_hmi_param_u32u16u8u8_t_tbl = LIST(u32u16u8u8);
const zof_hmi_rec_t zof_hmi_param_u16u16u16u16_t_tbl = LIST(u16u16u16u16);
const zof_hmi_rec_t zof_hmi_param_u16u8u8u8u8_t_tbl = LIST(rtc);
const zof_hmi_rec_t zof_hmi_ctrl_id_t_tbl = LIST(ctrl_id);
const zof_hmi_rec_t zof_hmi_stdby_t_tbl = LIST(stdby);
const zof_hmi_rec_t zof_hmi_tabel_t_tbl = LIST(tabel);
const zof_hmi_rec_t zof_hmi_state_t_tbl = LIST(state);
const zof_hmi_rec_t zof_hmi_page_t_tbl = LIST(page);

const zof_hmi_rw_t zof_hmi_base_rw_t_tbl = {&zof_hmi_none_t_tbl, &zof_hmi_one_s8_t_tbl};
const zof_hmi_rw_t zof_hmi_s8_s8_rw_t_tbl = {&zof_hmi_one_s8_t_tbl, &zof_hmi_one_s8_t_tbl};
const zof_hmi_rw_t zof_hmi_u16_s8_rw_t_tbl = {&zof_hmi_one_u16_t_tbl, &zof_hmi_one_s8_t_tbl};
const zof_hmi_rw_t zof_hmi_u8_s8_rw_t_tbl = {&zof_hmi_one_u8_t_tbl, &zof_hmi_one_s8_t_tbl};
const zof_hmi_rw_t zof_hmi_u8u16_s8_rw_t_tbl = {&zof_hmi_param_u8u16_t_tbl, &zof_hmi_one_s8_t_tbl};
const zof_hmi_rw_t zof_hmi_u16u16_s8_rw_t_tbl = {&zof_hmi_param_u16u16_t_tbl, &zof_hmi_one_s8_t_tbl};
// clang-format on

static u8 width_of(const zof_hmi_field_t *field) {
    return field->type < ZOF_HMI_T_COUNT ? widths[field->type] : 0;
}

static const char *text_of(const void *record, const zof_hmi_field_t *field) {
    const char *text;
    memcpy(&text, (const u8 *)record + field->offset, sizeof(text));
    return text;
}

static u32 field_size(const void *record, const zof_hmi_field_t *field) {
    if (field->type != ZOF_HMI_T_STR) {
        return width_of(field);
    }
    const char *text = text_of(record, field);
    return text ? (u32)strlen(text) + 1 : 0;
}

u32 zof_hmi_cmd_param_size(const void *record, const zof_hmi_rec_t *list) {
    u32 size = 0;
    for (u32 i = 0; record && list && i < list->count; i++) {
        size += field_size(record, &list->fields[i]);
    }
    return size;
}

u32 zof_hmi_cmd_param_2_buf(const void *record, const zof_hmi_rec_t *list, u8 *out) {
    if (!record || !list || !out) {
        return 0;
    }
    const u8 *start = out;
    for (u32 i = 0; i < list->count; i++) {
        const zof_hmi_field_t *field = &list->fields[i];
        const u32 size = field_size(record, field);
        if (field->type == ZOF_HMI_T_STR) {
            if (size) {
                memcpy(out, text_of(record, field), size);
            }
        } else {
            memcpy(out, (const u8 *)record + field->offset, size);
            byte_rev(out, size);
        }
        out += size;
    }
    return (u32)(out - start);
}

// Returns the bytes that the fields take in `in`, or -1 when that is more than `size`.
static s32 fields_fit(const zof_hmi_rec_t *list, const u8 *in, u32 size) {
    u32 at = 0;
    for (u32 i = 0; i < list->count; i++) {
        u32 need = width_of(&list->fields[i]);
        if (list->fields[i].type == ZOF_HMI_T_STR) {
            const void *end = at < size ? memchr(in + at, 0, size - at) : nullptr;
            if (!end) {
                return -1;
            }
            need = (u32)((const u8 *)end - (in + at)) + 1;
        }
        if (need > size - at) {
            return -1;
        }
        at += need;
    }
    return (s32)at;
}

s32 zof_hmi_cmd_buf_2_param(void *record, const zof_hmi_rec_t *list, const u8 *in, u32 size) {
    if (!record || !list || !in) {
        return 0;
    }
    const s32 total = fields_fit(list, in, size);
    for (u32 i = 0; total >= 0 && i < list->count; i++) {
        const zof_hmi_field_t *field = &list->fields[i];
        u8 *slot = (u8 *)record + field->offset;
        if (field->type == ZOF_HMI_T_STR) {
            const char *text = (const char *)in;
            memcpy(slot, &text, sizeof(text));
            in += strlen(text) + 1;
        } else {
            memcpy(slot, in, width_of(field));
            byte_rev(slot, width_of(field));
            in += width_of(field);
        }
    }
    return total;
}
