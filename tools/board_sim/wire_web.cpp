// The line of the board in a page: the far end of the panel's line, in memory.
#include "wire.h"

#include "port/host_web_line.h"

const bool wire_makes_lines = true;
const char *const wire_line_help = "not in a page";
const char *const wire_example = "";

bool wire_plug(wire &w) {
    w.fd = 0;
    w.slave_name = "box";
    host_far_plug(HOST_FAR_BOX, ZOF_TRUE);
    return true;
}

void wire_unplug(wire &w) {
    w.fd = -1;
    w.queue.clear();
    host_far_plug(HOST_FAR_BOX, ZOF_FALSE);
}

void wire_lost(wire &w) {
    wire_unplug(w);
}

long wire_read(wire &w, uint8_t *data, size_t size) {
    return w.fd < 0 ? 0 : (long)host_far_read(HOST_FAR_BOX, data, (u32)size);
}

size_t wire_write(wire &, const bytes &data) {
    return host_far_write(HOST_FAR_BOX, data.data(), (u32)data.size());
}

void wire_wait(const std::vector<wire_wanted> &, int ms) {
    host_far_wait(HOST_FAR_BOX, (u32)ms);
}
