// Shared by all fuzzers. Each file *_fuzz.cpp is one: it accepts any bytes and must not crash, hang or leak. In the
// fuzz build it is a libFuzzer program (./test fuzz); in test builds it replays its seeds and all inputs that ever made
// it fail.
#ifndef FUZZ_H
#define FUZZ_H

#define DOCTEST_CONFIG_DISABLE // uses the fixtures of the tests, but not their checks

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "hmi/zof_hmi_frame.h"
#include "zof.h"

enum { FUZZ_HEAD0 = 0x5A, FUZZ_HEAD1 = 0xA5 }; // of frames, for hosts and boards

// The rest of an input.
struct fuzz_input {
    const u8 *at;
    size_t size;
};

// Defined by each fuzzer: called once, and called for each input.
void fuzz_open();
void fuzz_one(fuzz_input &in);

// Silences the log of the runtime, which reports every fault of its input.
extern "C" __attribute__((used)) inline int LLVMFuzzerInitialize(int *, char ***) {
    if (!getenv("ZOF_FUZZ_LOUD") && !freopen("/dev/null", "w", stdout)) {
        abort();
    }
    fuzz_open();
    return 0;
}

extern "C" __attribute__((used)) inline int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz_input in = {data, size};
    fuzz_one(in);
    return 0;
}

inline u8 fuzz_byte(fuzz_input &in) {
    if (in.size == 0) {
        return 0;
    }
    in.size--;
    return *in.at++;
}

// The next bytes in a block of their exact size, so reads beyond them are detected.
inline std::vector<u8> fuzz_bytes(fuzz_input &in, size_t size) {
    const size_t n = size < in.size ? size : in.size;
    std::vector<u8> out(in.at, in.at + n);
    in.at += n;
    in.size -= n;
    return out;
}

// The rest of the input, as the text of a file.
inline std::string fuzz_text(const fuzz_input &in) {
    return std::string((const char *)in.at, in.size);
}

// Reads every byte, so invalid memory is detected.
inline s32 fuzz_read(const u8 *data, u32 size) {
    static volatile u8 sum;
    for (u32 i = 0; i < size; i++) {
        sum = (u8)(sum + data[i]);
    }
    return (s32)size;
}

// Adds head, length and CRC to code and payload, because fuzzing would not find them.
inline std::vector<u8> fuzz_sealed(std::vector<u8> counted, bool crc, bool long_form = false) {
    if (crc) {
        const u16 sum = zof_hmi_crc16(counted.data(), (u32)counted.size());
        counted.insert(counted.end(), {(u8)(sum >> 8), (u8)sum});
    }
    std::vector<u8> out = {FUZZ_HEAD0, FUZZ_HEAD1};
    if (long_form || counted.size() > 127) {
        out.push_back((u8)(0x80 | counted.size() >> 8));
    }
    out.push_back((u8)counted.size());
    out.insert(out.end(), counted.begin(), counted.end());
    return out;
}

// Aborts if a rule is violated that sanitizers do not check.
inline void fuzz_must(bool holds, const char *rule) {
    if (!holds) {
        fprintf(stderr, "broken: %s\n", rule);
        abort();
    }
}

#endif
