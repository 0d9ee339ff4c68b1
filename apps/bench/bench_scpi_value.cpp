// Parameters of SCPI and numbers in its answers.
#include "bench/bench_scpi_in.h"

#include <math.h>
#include <stdarg.h>
#include <stdio.h>

#include <algorithm>
#include <charconv>

using view = std::string_view;

static char upper(char c) {
    return c >= 'a' && c <= 'z' ? (char)(c - 'a' + 'A') : c;
}

static bool same(view a, view b) {
    bool equal = a.size() == b.size();
    for (size_t i = 0; equal && i < a.size(); i++) {
        equal = upper(a[i]) == upper(b[i]);
    }
    return equal;
}

bool scpi_word_is(view pattern, view word) {
    size_t length = 0; // length of the short form
    while (length < pattern.size() && !(pattern[length] >= 'a' && pattern[length] <= 'z')) {
        length++;
    }
    return same(pattern, word) || same(pattern.substr(0, length), word);
}

std::string scpi_format(const char *format, ...) {
    char out[256];
    va_list args;
    va_start(args, format);
    vsnprintf(out, sizeof(out), format, args);
    va_end(args);
    return out;
}

std::string scpi_milli(u32 thousandths) {
    return scpi_format("%u.%03u", thousandths / 1000, thousandths % 1000);
}

void scpi_answer(scpi_call_t &call, const std::string &text) {
    std::string &answer = call.client->answer;
    answer += (answer.empty() ? "" : ";") + text;
}

static bool fail(scpi_call_t &call, scpi_code_e code, view text) {
    scpi_fail(call.client, code, std::string(text));
    return false;
}

// Reads a number; `rest` receives the text after it.
static bool number_read(scpi_call_t &call, u32 index, double *out, view *rest) {
    const scpi_param_t &param = call.param[index];
    if (param.kind != SCPI_NUMBER) {
        return fail(call, param.kind == SCPI_WORD ? SCPI_ILLEGAL : SCPI_DATA_TYPE, param.text);
    }
    view text = param.text;
    const bool plus = text.front() == '+'; // from_chars does not accept it
    text.remove_prefix(plus);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *out);
    if (error == std::errc::result_out_of_range) {
        return fail(call, SCPI_EXPONENT, param.text);
    }
    if (error != std::errc() || !isfinite(*out) || (plus && text.front() == '-')) {
        return fail(call, SCPI_IN_NUMBER, param.text);
    }
    text.remove_prefix((size_t)(end - text.data()));
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    *rest = text;
    return true;
}

bool scpi_param_flag(scpi_call_t &call, u32 index, bool *out) {
    const scpi_param_t &param = call.param[index];
    if (param.kind == SCPI_WORD && (scpi_word_is("ON", param.text) || scpi_word_is("OFF", param.text))) {
        *out = scpi_word_is("ON", param.text);
        return true;
    }
    u32 value = 0;
    if (!scpi_param_integer(call, index, 0, 1, &value)) {
        return false;
    }
    *out = value != 0;
    return true;
}

bool scpi_param_integer(scpi_call_t &call, u32 index, u32 low, u32 high, u32 *out) {
    double value = 0;
    view rest;
    if (!number_read(call, index, &value, &rest)) {
        return false;
    }
    if (!rest.empty()) {
        return fail(call, SCPI_NO_SUFFIX, rest);
    }
    value = round(value);
    if (value < low || value > high) {
        return fail(call, SCPI_RANGE, scpi_format("%u to %u", low, high));
    }
    *out = (u32)value;
    return true;
}

bool scpi_param_milli(scpi_call_t &call, u32 index, char unit, double *out) {
    static constexpr struct {
        const char *prefix;
        double thousandths;
    } prefixes[] = {{"", 1e3}, {"M", 1}, {"U", 1e-3}, {"K", 1e6}};
    double value = 0;
    view rest;
    if (!number_read(call, index, &value, &rest)) {
        return false;
    }
    for (const auto &row : prefixes) {
        const std::string suffix = row.prefix + std::string(1, unit);
        if (same(rest, suffix) || (rest.empty() && row.thousandths == 1e3)) {
            *out = value * row.thousandths;
            // rounds away the error of a value that was written in decimals
            *out = fabs(*out - round(*out)) < 1e-6 ? round(*out) : *out;
            return true;
        }
    }
    return fail(call, SCPI_SUFFIX, rest);
}
