// The rows of the host protocol with the names of their fields, for the programs that write documents and host
// libraries.
#ifndef ZOF_PROTOCOL_ROWS_H
#define ZOF_PROTOCOL_ROWS_H

#include <string>
#include <vector>

#include "hmi/zof_hmi_cmd.h"

struct field_type_t {
    const char *wire, *c, *put;
};

struct field_t {
    std::string name;
    const field_type_t *type;
};

// A row with the names of all its fields.
struct row_t {
    const zof_hmi_cmd_type_t *type;
    const zof_hmi_param_type_t *param;
    std::vector<field_t> address, request, value; // in wire order
    bool hidden;                                  // shadowed by an earlier row with the same code
};

// Returns the rows of a type, in the order of its table.
std::vector<row_t> rows_of(const zof_hmi_cmd_type_t &type);

// Returns the bytes that select a row: those of its type, then its own.
std::vector<u8> rows_code(const row_t &row);

// Returns bytes as upper-case hex, with `gap` between them.
std::string rows_hex(const u8 *code, u32 len, const char *gap);

// Returns "u16 view, text name", or "-" for no fields.
std::string rows_words(const std::vector<field_t> &list);

// Returns a table of a type's rows in Markdown.
std::string rows_table(const zof_hmi_cmd_type_t &type);

#endif
