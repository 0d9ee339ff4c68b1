#include "decode.h"

#include <cstdio>
#include <cstring>

#include "hmi/zof_hmi_analys.h"

enum { NOISE_MAX = 32, LEN_MIN = 3, PADDING = 16 };

std::string hex_text(const bytes &data) {
    std::string out;
    for (uint8_t byte : data) {
        char text[4];
        snprintf(text, sizeof(text), "%s%02X", out.empty() ? "" : " ", byte);
        out += text;
    }
    return out;
}

zof_hmi_cmd_analys_t decode_settings(uint8_t head_fh, uint8_t head_fl, bool crc) {
    return {.head_fh = head_fh,
            .head_fl = head_fl,
            .type_count = (u8)zof_ui_cmd_type_count,
            .types = zof_ui_cmd_types,
            .crc_en = crc};
}

static std::string quoted(const char *text) {
    std::string out = "\"";
    for (; *text; text++) {
        char code[8];
        const auto c = (uint8_t)*text;
        if (c < ' ' || c == '"' || c == '\\' || c == 0x7F) {
            snprintf(code, sizeof(code), "\\x%02X", c);
            out += code;
        } else {
            out += *text;
        }
    }
    return out + "\"";
}

template <typename T> static long long number(const uint8_t *at) {
    T value;
    memcpy(&value, at, sizeof(value));
    return value;
}

static std::string field_text(const uint8_t *record, const zof_hmi_field_t &field, const std::string &name) {
    const uint8_t *at = record + field.offset;
    const bool colour = name == "rgb" || name == "argb";
    char text[24];
    switch (field.type) {
    case ZOF_HMI_T_STR: {
        const char *string;
        memcpy(&string, at, sizeof(string));
        return quoted(string);
    }
    case ZOF_HMI_T_S8:
        snprintf(text, sizeof(text), "%lld", number<int8_t>(at));
        break;
    case ZOF_HMI_T_U8:
        snprintf(text, sizeof(text), "%lld", number<uint8_t>(at));
        break;
    case ZOF_HMI_T_S16:
        snprintf(text, sizeof(text), "%lld", number<int16_t>(at));
        break;
    case ZOF_HMI_T_U16:
        snprintf(text, sizeof(text), "%lld", number<uint16_t>(at));
        break;
    case ZOF_HMI_T_S32:
        snprintf(text, sizeof(text), "%lld", number<int32_t>(at));
        break;
    default:
        snprintf(text, sizeof(text), colour ? "0x%06llX" : "%lld", number<uint32_t>(at));
    }
    return text;
}

// State while the fields of a payload are read.
struct reader {
    bytes data; // padded, so that code look-ups stay inside
    size_t at, size;
    std::string text;
    bool whole;
};

static void read_fields(reader &r, const zof_hmi_rec_t *list, const char *names) {
    alignas(8) uint8_t record[ZOF_HMI_RECORD_SIZE] = {};
    const s32 n = r.whole ? zof_hmi_cmd_buf_2_param(record, list, r.data.data() + r.at, (u32)(r.size - r.at)) : -1;
    r.whole = r.whole && n >= 0;
    for (u32 i = 0; r.whole && i < list->count; i++) {
        const char *end = names ? strchr(names, ' ') : nullptr;
        const std::string name = names ? (end ? std::string(names, end) : std::string(names)) : "answer";
        r.text += " " + name + "=" + field_text(record, list->fields[i], name);
        names = end ? end + 1 : nullptr;
    }
    r.at += r.whole ? (size_t)n : 0;
}

// Reads the fields after the row's code. The operation and the direction decide which ones are present.
static void read_row(reader &r, const zof_hmi_cmd_type_t &type, const zof_hmi_param_type_t &row, u8 op,
                     bool from_host) {
    read_fields(r, type.rec, type.rec_names);
    read_fields(r, row.rw->req, row.req_names);
    const size_t start = r.at;
    if (op == ZOF_HMI_OP_SET && !from_host) {
        read_fields(r, row.rw->rep, nullptr);
    } else if (op == ZOF_HMI_OP_SET || !from_host) {
        read_fields(r, row.value, row.value_names);
    }
    if (!r.whole && op == ZOF_HMI_OP_GET && !from_host && r.size == start + 1) {
        r.text += " refused";
        r.at = r.size;
        r.whole = true;
    }
}

static const char *verb(u8 op, bool from_host) {
    switch (op) {
    case ZOF_HMI_OP_GET:
        return from_host ? "read " : "value";
    case ZOF_HMI_OP_SET:
        return from_host ? "write" : "ack  ";
    default:
        return "op ? ";
    }
}

static void describe(piece &p, const zof_hmi_cmd_analys_t &settings) {
    const zof_hmi_frame_t frame = zof_hmi_frame_parse(&settings, p.data.data());
    reader r = {{}, 0, frame.size, verb(frame.op, p.from_host), true};
    r.data = bytes(frame.payload, frame.payload + frame.size);
    r.data.resize(frame.size + PADDING);
    u8 key[3] = {ZOF_HMI_KEY_ANY, r.data[0], r.data[1]};
    const zof_hmi_cmd_type_t *type = zof_hmi_cmd_find_type(&settings, key);
    const zof_hmi_param_type_t *row = nullptr;
    if (type) {
        memcpy(key + 1, r.data.data() + type->len, 2);
        row = zof_hmi_cmd_find_param_type(key, type);
    }
    p.name = type ? std::string(type->name) + "." + (row ? row->name : "?") : "?";
    r.text += " " + p.name;
    if (row) {
        r.at = type->len + row->len;
        r.whole = r.at <= r.size;
        read_row(r, *type, *row, frame.op, p.from_host);
        r.text += !r.whole ? "  !! fields are missing" : r.at < r.size ? "  !! bytes after the fields" : "";
    } else {
        r.text += "  !! no such row";
    }
    p.text = r.text;
}

static std::string format(const char *words, unsigned a, unsigned b) {
    char text[96];
    snprintf(text, sizeof(text), words, a, b);
    return text;
}

static piece cut(splitter &s, size_t size, const char *name, const std::string &text) {
    piece p = {s.time[0], s.from_host, bytes(s.kept.begin(), s.kept.begin() + (long)size), name, text};
    s.kept.erase(s.kept.begin(), s.kept.begin() + (long)size);
    s.time.erase(s.time.begin(), s.time.begin() + (long)size);
    return p;
}

static void noise_end(splitter &s, std::vector<piece> &out) {
    if (!s.noise.data.empty()) {
        s.noise.text = format("noise, %u bytes", (unsigned)s.noise.data.size(), 0);
        out.push_back(s.noise);
        s.noise.data.clear();
    }
}

static void noise_byte(splitter &s, std::vector<piece> &out) {
    const piece p = cut(s, 1, "noise", "");
    if (s.noise.data.size() == NOISE_MAX) {
        noise_end(s, out);
    }
    if (s.noise.data.empty()) {
        s.noise = p;
    } else {
        s.noise.data.push_back(p.data[0]);
    }
}

// Returns the offset of the next head, at most `size`. If the length is wrong, the claimed frame may contain the head
// of a real one.
static size_t next_head(const splitter &s, const zof_hmi_cmd_analys_t &settings, size_t size) {
    for (size_t i = 2; i + 1 < size; i++) {
        if (s.kept[i] == settings.head_fh && s.kept[i + 1] == settings.head_fl) {
            return i;
        }
    }
    return size;
}

static size_t claimed_len(const splitter &s) {
    return s.kept[2] & 0x80 && s.kept.size() > 3 ? (size_t)(s.kept[2] & 0x7F) << 8 | s.kept[3] : s.kept[2];
}

// Cuts off a complete frame that has a fault.
static piece cut_fault(splitter &s, const zof_hmi_cmd_analys_t &settings) {
    const size_t head = s.kept[2] & 0x80 ? 4 : 3;
    const size_t len = claimed_len(s);
    if (len < LEN_MIN) {
        return cut(s, head, "fault", format("!! length %u has no room for a command", (unsigned)len, 0));
    }
    const unsigned right = zof_hmi_crc16(&s.kept[head], (u32)len - 2);
    const unsigned is = (unsigned)(s.kept[head + len - 2] << 8 | s.kept[head + len - 1]);
    return cut(s, next_head(s, settings, head + len), "fault", format("!! CRC is %04X, should be %04X", is, right));
}

static piece cut_short(splitter &s, const zof_hmi_cmd_analys_t &settings) {
    const unsigned len = s.kept.size() > 2 ? (unsigned)claimed_len(s) : 0;
    const size_t size = next_head(s, settings, s.kept.size());
    return cut(s, size, "fault", format("!! cut short: length says %u, %u bytes came", len, (unsigned)size));
}

std::vector<piece> split(splitter &s, const zof_hmi_cmd_analys_t &settings, const bytes &data, int64_t now_us,
                         bool silence) {
    std::vector<piece> out;
    s.kept.insert(s.kept.end(), data.begin(), data.end());
    s.time.insert(s.time.end(), data.size(), now_us);
    while (!s.kept.empty()) {
        const s32 size = zof_hmi_cmd_check_data(&settings, s.kept.data(), (u32)s.kept.size());
        if (size == -2 && !silence) {
            break;
        }
        if (size == -1) {
            noise_byte(s, out);
            continue;
        }
        noise_end(s, out);
        if (size > 0) {
            out.push_back(cut(s, (size_t)size, "", ""));
            describe(out.back(), settings);
        } else if (size == -2) {
            out.push_back(cut_short(s, settings));
        } else {
            out.push_back(cut_fault(s, settings));
        }
    }
    if (silence) {
        noise_end(s, out);
    }
    return out;
}
