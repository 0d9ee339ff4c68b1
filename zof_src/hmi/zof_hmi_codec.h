// Fields of the host protocol: converts between the bytes of a frame, big-endian without gaps, and plain records in
// native order. Pure functions, any thread.
#ifndef ZOF_HMI_CODEC_H
#define ZOF_HMI_CODEC_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum {
    ZOF_HMI_T_STR, // characters and a zero; a pointer in the record
    ZOF_HMI_T_S8,
    ZOF_HMI_T_U8,
    ZOF_HMI_T_S16,
    ZOF_HMI_T_U16,
    ZOF_HMI_T_S32,
    ZOF_HMI_T_U32,
    ZOF_HMI_T_COUNT
};

// Size of a record in bytes. Every record fits: a few numbers, or a few numbers and one text.
enum { ZOF_HMI_RECORD_SIZE = 16 };

typedef struct {
    u16 offset; // into the record
    u8 type;    // ZOF_HMI_T_*; any other takes no bytes and is skipped
} zof_hmi_field_t;

// The fields in wire order; a text is always the last one.
typedef struct {
    u8 count;
    const zof_hmi_field_t *fields;
} zof_hmi_rec_t;

// What a parameter expects before its value, and what its acknowledgement contains.
typedef struct {
    const zof_hmi_rec_t *req, *rep;
} zof_hmi_rw_t;

// Records of the lists below that have more than one field. A list of one field is just that field.
typedef struct {
    u8 a;
    const char *text;
} zof_hmi_u8str_t;
typedef struct {
    u8 a;
    u16 b;
} zof_hmi_u8u16_t;
typedef struct {
    u16 a;
    const char *text;
} zof_hmi_u16str_t;
typedef struct {
    u16 a, b;
    const char *text;
} zof_hmi_u16u16str_t;
typedef struct {
    u8 a;
    u32 b;
} zof_hmi_u8u32_t;
typedef struct {
    u8 a;
    u16 b, c;
} zof_hmi_u8u16u16_t;
typedef struct {
    u16 a, b;
} zof_hmi_u16u16_t;
typedef struct {
    s16 a, b;
} zof_hmi_s16s16_t;
typedef struct {
    u16 a;
    u32 b;
} zof_hmi_u16u32_t;
typedef struct {
    u8 a;
    s16 b, c;
} zof_hmi_u8s16s16_t;
typedef struct {
    u32 a;
    u16 b;
    u8 c, d;
} zof_hmi_u32u16u8u8_t;
typedef struct {
    u16 a, b, c, d;
} zof_hmi_u16u16u16u16_t;
typedef struct {
    u32 a;
    u8 b, c, d;
    u32 e;
} zof_hmi_tabel_t;
typedef struct {
    u16 view_id, ctrl_id;
} zof_hmi_ctrl_id_t;
typedef struct {
    u8 seq, event;
    s32 number;
    const char *text;
} zof_hmi_state_t;
typedef struct {
    u8 seq, more;
    u16 ctrl_id;
    s32 number;
    const char *text;
} zof_hmi_page_t;

extern const zof_hmi_rec_t zof_hmi_none_t_tbl; // no field
extern const zof_hmi_rec_t zof_hmi_one_s8_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_u8_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_u16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_s16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_u32_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_s32_t_tbl;
extern const zof_hmi_rec_t zof_hmi_one_str_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u8str_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u8u16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u16str_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u16u16str_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u8u32_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u8u16u16_t_tbl; // also zof_touch_t
extern const zof_hmi_rec_t zof_hmi_param_u16u16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_s16s16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u16u32_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u8s16s16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u32u16u8u8_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u16u16u16u16_t_tbl;
extern const zof_hmi_rec_t zof_hmi_param_u16u8u8u8u8_t_tbl; // zof_rtc_time_t: six fields, despite its name
extern const zof_hmi_rec_t zof_hmi_ctrl_id_t_tbl;
extern const zof_hmi_rec_t zof_hmi_stdby_t_tbl; // zof_func_standby_t
extern const zof_hmi_rec_t zof_hmi_tabel_t_tbl;
extern const zof_hmi_rec_t zof_hmi_state_t_tbl;
extern const zof_hmi_rec_t zof_hmi_page_t_tbl;

extern const zof_hmi_rw_t zof_hmi_base_rw_t_tbl; // no request; all of them answer with one signed byte
extern const zof_hmi_rw_t zof_hmi_s8_s8_rw_t_tbl;
extern const zof_hmi_rw_t zof_hmi_u16_s8_rw_t_tbl;
extern const zof_hmi_rw_t zof_hmi_u16u16_s8_rw_t_tbl;
extern const zof_hmi_rw_t zof_hmi_u8_s8_rw_t_tbl;
extern const zof_hmi_rw_t zof_hmi_u8u16_s8_rw_t_tbl;

// Returns the bytes that a record takes on the wire; 0 for null or an empty list. A null text takes none.
u32 zof_hmi_cmd_param_size(const void *record, const zof_hmi_rec_t *list);

// Encodes into `out`, which has room for zof_hmi_cmd_param_size bytes. Returns the bytes written.
u32 zof_hmi_cmd_param_2_buf(const void *record, const zof_hmi_rec_t *list, u8 *out);

// Decodes from at most `size` bytes; a text is not copied, the record points into `in`. Returns the bytes consumed, 0
// for null or an empty list; -1, with the record unchanged, when the fields, or the zero of a text, are not within
// `size`.
s32 zof_hmi_cmd_buf_2_param(void *record, const zof_hmi_rec_t *list, const u8 *in, u32 size);

ZOF_C_END

#endif
