// Accounted memory. Each block has a header with its size and its family's counter. The usable size that a system
// reports is rounded, and counters based on it drift; these stay exact, so tests can prove that memory use is flat.
#include "zof_lib/zof_stdio.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

struct alignas(16) block_head_t {
    size_t size;
    std::atomic<size_t> *counter; // the block's family, so that the count is right whichever function releases it
};
static_assert(sizeof(block_head_t) == 16, "the header must not spoil the block's alignment");

struct {
    std::atomic<size_t> zof_mem_size{0};
    std::atomic<size_t> zof_mem_size1{0};
    std::atomic<u32> g_win_mem_total{10};
    std::atomic<u32> tries{0};
    std::atomic<u32> fail_at{0}; // in allocations
} memory;                        // counters of the two families

block_head_t *head_of(void *p) {
    return (block_head_t *)p - 1;
}

bool fails_for_test() {
    return ++memory.tries == memory.fail_at;
}

void *block_new(size_t n, bool zeroed, std::atomic<size_t> *counter) {
    if (n == 0 || n > PTRDIFF_MAX - sizeof(block_head_t) || fails_for_test()) {
        return nullptr;
    }
    size_t whole = n + sizeof(block_head_t);
    void *raw = zeroed ? std::calloc(whole, 1) : std::malloc(whole);
    if (!raw) {
        return nullptr;
    }
    auto *head = (block_head_t *)raw;
    head->size = n;
    head->counter = counter;
    *counter += n;
    return head + 1;
}

void block_free(void *p) {
    if (!p) {
        return;
    }
    block_head_t *head = head_of(p);
    *head->counter -= head->size;
    std::free(head);
}

void *block_resize(void *p, size_t n, bool zeroed, std::atomic<size_t> *counter) {
    if (!p) {
        return block_new(n, zeroed, counter);
    }
    if (n == 0) {
        block_free(p);
        return nullptr;
    }
    if (n > PTRDIFF_MAX - sizeof(block_head_t) || fails_for_test()) {
        return nullptr;
    }
    size_t old = head_of(p)->size;
    auto *head = (block_head_t *)(std::realloc(head_of(p), n + sizeof(block_head_t)));
    if (!head) {
        return nullptr;
    }
    *head->counter += n - old; // unsigned wrap makes this a subtraction when the block shrinks
    head->size = n;
    if (zeroed && n > old) {
        std::memset((u8 *)(head + 1) + old, 0, n - old);
    }
    return head + 1;
}

} // namespace

void *zof_malloc(size_t n) {
    return block_new(n, true, &memory.zof_mem_size);
}

void *zof_realloc(void *p, size_t n) {
    return block_resize(p, n, true, &memory.zof_mem_size);
}

void zof_free(void *p) {
    block_free(p);
}

void *zof_lv_malloc(size_t n) {
    return block_new(n, false, &memory.zof_mem_size1);
}

void *zof_lv_realloc(void *p, size_t n) {
    return block_resize(p, n, false, &memory.zof_mem_size1);
}

void zof_lv_free(void *p) {
    block_free(p);
}

void zof_mem_end(const char *what) {
    zof_printf("out of memory: %s; the program ends\n", what);
    std::_Exit(ZOF_EXIT_FAILURE); // threads may still run: nothing is torn down
}

static void *must_have(void *p, size_t n) {
    enum { CHECKED_FROM = 1 << 20 };
    if (!p && n > 0 && n <= CHECKED_FROM) {
        zof_mem_end("an object of the screen could not be created");
    }
    return p;
}

void *zof_lv_malloc_must(size_t n) {
    return must_have(zof_lv_malloc(n), n);
}

void *zof_lv_realloc_must(void *p, size_t n) {
    return must_have(zof_lv_realloc(p, n), n);
}

u32 zof_mem_fail_at(u32 n) {
    memory.fail_at = n;
    return memory.tries.exchange(0);
}

u32 zof_mem_count(void) {
    return (u32)memory.zof_mem_size.load();
}

u32 zof_lv_mem_count(void) {
    return (u32)memory.zof_mem_size1.load();
}

u32 zof_mem_get_used(void) {
    u32 own = zof_mem_count();
    u32 lv = zof_lv_mem_count();
    zof_printf("zof memory get used zof mem=%d mem=%d total=%d\n", (int)own, (int)lv, (int)(own + lv));
    return own + lv;
}

s32 zof_mem_get_free(void) {
    const s64 total = (s64)memory.g_win_mem_total.load() << 20;
    const s64 used = (s64)(memory.zof_mem_size.load() + memory.zof_mem_size1.load());
    return (s32)(std::clamp<s64>(total - used, INT32_MIN, INT32_MAX));
}

void zof_win_mem_total_set(u32 mb) {
    if (mb) {
        memory.g_win_mem_total = mb;
    }
}
