/* SPDX-License-Identifier: Apache-2.0 */
/*
 * A client on a system with 4-byte longs, where the type of a record is shorter
 * in memory: client32 DOCID STORE paints a document, drags it by 300 rows and
 * pinches it to twice its size. Its exit status tells which step failed.
 */
#include <sched.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ipc.h>
#include <sys/msg.h>

_Static_assert(sizeof(long) == 4, "to be compiled for a 32-bit system");

struct to_service {
    long type;
    int32_t docid, x, y;
    unsigned char tail[8];
};

struct to_client {
    long type;
    int32_t id, value, extra;
};

static int queue;
static int32_t docid;

static int post(long type, int32_t x, int32_t y) {
    struct to_service record;
    memset(&record, 0, sizeof record);
    record.type = type;
    record.docid = docid;
    record.x = x;
    record.y = y;
    return msgsnd(queue, &record, 20, 0);
}

static int pinch(long type, double scale) {
    struct to_service record;
    memset(&record, 0, sizeof record);
    record.type = type;
    record.docid = docid;
    memcpy((char*)&record + 8, &scale, sizeof scale);
    return msgsnd(queue, &record, 20, 0);
}

static int painted(void) {
    struct to_client record;
    return post(1, 0, 0) == 0 && msgrcv(queue, &record, 12, docid + 101, 0) == 12 && record.id == 9 &&
           record.value == 0;
}

/* Waits until all input was taken, because paints and pen ups overtake pen moves.
 * Drops the notifications that come meanwhile. */
static void settle(long store) {
    struct msqid_ds status;
    struct to_client record;
    while (msgctl(queue, IPC_STAT, &status) == 0 && status.msg_qnum > 0) {
        if (msgrcv(queue, &record, 12, store, IPC_NOWAIT) != 12) {
            sched_yield();
        }
    }
}

int main(int argc, char** argv) {
    struct to_client record;
    long store;
    if (argc != 3) {
        return 2;
    }
    docid = atoi(argv[1]);
    store = atoi(argv[2]);
    queue = msgget(ftok("/tmp", 79), 0);
    if (queue < 0) {
        return 3;
    }
    if (!painted()) {
        return 4;
    }
    settle(store);
    if (post(4, 100, 500) != 0) {
        return 5;
    }
    settle(store);
    if (post(6, 100, 300) != 0) {
        return 5;
    }
    settle(store);
    /* A pen up asks for a paint. */
    if (post(5, 100, 200) != 0 || msgrcv(queue, &record, 12, store, 0) != 12 || record.id != 0 ||
        !painted()) {
        return 6;
    }
    if (pinch(7, 1.0) != 0 || pinch(8, 2.0) != 0) {
        return 7;
    }
    settle(store);
    if (!painted() || pinch(9, 2.0) != 0) {
        return 8;
    }
    settle(store);
    return painted() ? 0 : 9;
}
