// The clients of SCPI, and which of them hold the panel. The Local button takes the panel back from all of them; a
// client may set values again after SYST:REM or a new connection.
#include "bench/bench_scpi_in.h"

#include <stdio.h>

static scpi_client_t *clients[SCPI_CLIENTS];

static scpi_client_t *holder() {
    for (scpi_client_t *client : clients) {
        if (client && client->holds) {
            return client;
        }
    }
    return nullptr;
}

static void remote_show(const char *name) {
    snprintf(bench.remote, sizeof(bench.remote), "%s", name);
}

void scpi_remote_check() {
    if (bench.remote[0] != '\0' || !holder()) {
        return;
    }
    for (scpi_client_t *client : clients) {
        if (client) {
            client->holds = false;
            client->refused = true;
        }
    }
}

void scpi_remote_take(scpi_client_t *client) {
    client->holds = true;
    client->refused = false;
    remote_show(client->name);
}

void scpi_remote_leave(scpi_client_t *client) {
    if (client->holds) {
        client->holds = false;
        const scpi_client_t *other = holder();
        remote_show(other ? other->name : "");
    }
}

bool scpi_open(scpi_client_t *client, const char *name) {
    scpi_remote_check();
    for (scpi_client_t *&place : clients) {
        if (!place) {
            *client = {};
            snprintf(client->name, sizeof(client->name), "%s", name);
            place = client;
            return true;
        }
    }
    return false;
}

void scpi_close(scpi_client_t *client) {
    scpi_remote_check();
    scpi_remote_leave(client);
    for (scpi_client_t *&place : clients) {
        place = place == client ? nullptr : place;
    }
}
