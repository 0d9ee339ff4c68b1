// Errors of SCPI and the registers that follow from them.
#include "bench/bench_scpi_in.h"

enum { TEXT_MAX = 255, ESR_QUERY = 4, ESR_DEVICE = 8, ESR_EXECUTION = 16, ESR_COMMAND = 32 };

static constexpr struct {
    s16 code;
    const char *text;
} rows[] = {
    {0, "No error"},
    {SCPI_INVALID_CHARACTER, "Invalid character"},
    {SCPI_SYNTAX, "Syntax error"},
    {SCPI_DATA_TYPE, "Data type error"},
    {SCPI_TOO_MANY, "Parameter not allowed"},
    {SCPI_MISSING, "Missing parameter"},
    {SCPI_SEPARATOR, "Header separator error"},
    {SCPI_MNEMONIC_LONG, "Program mnemonic too long"},
    {SCPI_HEADER, "Undefined header"},
    {SCPI_HEADER_SUFFIX, "Header suffix out of range"},
    {SCPI_IN_NUMBER, "Invalid character in number"},
    {SCPI_EXPONENT, "Exponent too large"},
    {SCPI_SUFFIX, "Invalid suffix"},
    {SCPI_NO_SUFFIX, "Suffix not allowed"},
    {SCPI_STRING, "Invalid string data"},
    {SCPI_PROTECTED, "Command protected"},
    {SCPI_CONFLICT, "Settings conflict"},
    {SCPI_RANGE, "Data out of range"},
    {SCPI_ILLEGAL, "Illegal parameter value"},
    {SCPI_STALE, "Data corrupt or stale"},
    {SCPI_DEVICE, "Device-specific error"},
    {SCPI_OVERFLOW, "Queue overflow"},
    {SCPI_OVERRUN, "Input buffer overrun"},
    {SCPI_TIMEOUT, "Time out error"},
};

static const char *text_of(s16 code) {
    for (const auto &row : rows) {
        if (row.code == code) {
            return row.text;
        }
    }
    return "";
}

static u8 esr_bit(s16 code) {
    static constexpr u8 bits[] = {0, ESR_COMMAND, ESR_EXECUTION, ESR_DEVICE, ESR_QUERY};
    return bits[-code / 100];
}

// Error texts may quote what a client sent, so characters that cannot appear in an answer's string are replaced.
static std::string printable(const std::string &text) {
    std::string out;
    for (char c : text) {
        out += c < ' ' || c > '~' || c == '"' ? '?' : c;
    }
    return out;
}

std::string scpi_quoted(const std::string &text) {
    return "\"" + printable(text) + "\"";
}

void scpi_fail(scpi_client_t *client, scpi_code_e code, const std::string &more) {
    client->failed = true;
    client->esr |= esr_bit(code);
    if (client->errors == SCPI_ERRORS) {
        client->error[SCPI_ERRORS - 1] = {SCPI_OVERFLOW, text_of(SCPI_OVERFLOW)};
        client->esr |= ESR_DEVICE;
        return;
    }
    const std::string text = text_of(code) + (more.empty() ? "" : ";" + printable(more));
    client->error[client->errors++] = {code, text.substr(0, TEXT_MAX)};
}
