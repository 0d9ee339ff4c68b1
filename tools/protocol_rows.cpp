#include "protocol_rows.h"

#include <cstring>
#include <sstream>

static constexpr field_type_t field_types[] = {{"text", "const char *", "text"}, {"s8", "int8_t ", "u8"},
                                               {"u8", "uint8_t ", "u8"},         {"s16", "int16_t ", "u16"},
                                               {"u16", "uint16_t ", "u16"},      {"s32", "int32_t ", "u32"},
                                               {"u32", "uint32_t ", "u32"}};
static_assert(sizeof(field_types) / sizeof(field_types[0]) == ZOF_HMI_T_COUNT);

static std::vector<field_t> fields(const zof_hmi_rec_t *list, const char *names) {
    std::vector<field_t> out;
    std::istringstream words(names ? names : "");
    for (u32 i = 0; i < list->count; i++) {
        std::string name;
        words >> name;
        out.push_back({name, &field_types[list->fields[i].type]});
    }
    return out;
}

std::vector<row_t> rows_of(const zof_hmi_cmd_type_t &type) {
    std::vector<row_t> out;
    for (u32 i = 0; i < type.param_count; i++) {
        const zof_hmi_param_type_t &p = type.params[i];
        bool hidden = false;
        for (u32 k = 0; k < i; k++) {
            hidden = hidden || memcmp(type.params[k].code, p.code, type.params[k].len) == 0;
        }
        out.push_back({&type, &p, fields(type.rec, type.rec_names), fields(p.rw->req, p.req_names),
                       fields(p.value, p.value_names), hidden});
    }
    return out;
}

std::vector<u8> rows_code(const row_t &row) {
    std::vector<u8> out(row.type->code, row.type->code + row.type->len);
    out.insert(out.end(), row.param->code, row.param->code + row.param->len);
    return out;
}

std::string rows_hex(const u8 *code, u32 len, const char *gap) {
    std::string out;
    for (u32 i = 0; i < len; i++) {
        char text[8];
        snprintf(text, sizeof(text), "%s%02X", i ? gap : "", code[i]);
        out += text;
    }
    return out;
}

std::string rows_words(const std::vector<field_t> &list) {
    std::string out;
    for (const field_t &f : list) {
        out += (out.empty() ? "" : ", ") + std::string(f.type->wire) + " " + f.name;
    }
    return out.empty() ? "-" : out;
}

static const char *access_words(const row_t &row) {
    const bool reads = row.param->get_fun && !row.hidden, writes = row.param->set_fun && !row.hidden;
    return reads && writes ? "read, write" : reads ? "read" : writes ? "write" : "-";
}

std::string rows_table(const zof_hmi_cmd_type_t &type) {
    std::ostringstream out;
    out << "| Code | Name | Host may | Request | Value | What it does |\n|---|---|---|---|---|---|\n";
    for (const row_t &row : rows_of(type)) {
        out << "| " << rows_hex(row.param->code, row.param->len, " ") << " | `" << type.name << "." << row.param->name
            << "` | " << access_words(row) << " | " << rows_words(row.request) << " | " << rows_words(row.value)
            << " | " << row.param->help << " |\n";
    }
    return out.str();
}
