// The protocol engine: looks frames up in the command tables, executes them and answers. System commands run on the
// link's receive thread as they arrive; all others wait in a queue for the graphics thread. There is no error frame: a
// host learns of a failure from an acknowledgement byte or from silence.
#ifndef ZOF_HMI_ANALYS_H
#define ZOF_HMI_ANALYS_H

#include "hmi/zof_hmi_frame.h"
#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

// As the length byte of a key: the lengths in the rows apply.
enum { ZOF_HMI_KEY_ANY = 255 };

// The longest frame that the link can receive, in bytes; a head that announces more is noise. How long a partial frame
// waits for its rest after a silence, in ms.
enum { ZOF_HMI_RECEIVE_MAX = 4352, ZOF_HMI_KEPT_MS = 1000 };

// Null until they are initialised; they stay valid for the whole run. The first belongs to the receive thread, the
// second to the graphics thread.
extern zof_hmi_cmd_analys_t *sys_cmd_analys;
extern zof_hmi_cmd_analys_t *ui_cmd_analys;

// Allocates the records and the send buffer that the context lacks. Returns 0, or -1 with all of them released.
s32 zof_hmi_cmd_analys_init(zof_hmi_cmd_analys_t *analys);

// Main thread, once, before the link opens. Returns 0, or -1 with a log line. The second also makes the queue,
// `buffsize` + 1024 bytes, and the task that empties it. `resend_en` applies to system commands alone: no other write
// is acknowledged. The caller then sets the `line` of both.
s32 zof_hmi_cmd_sys_analys_init(const zof_hmi_attr_t *attr);
s32 zof_hmi_cmd_ui_analys_init(const zof_hmi_attr_t *attr);

// Returns the first row whose code bytes match the key: a length byte, or ZOF_HMI_KEY_ANY and two code bytes. Null if
// there is no such row, for a null key and for one of length 0.
const zof_hmi_cmd_type_t *zof_hmi_cmd_find_type(const zof_hmi_cmd_analys_t *analys, const u8 *key);
const zof_hmi_param_type_t *zof_hmi_cmd_find_param_type(const u8 *key, const zof_hmi_cmd_type_t *type);

// Returns the length field of a checked frame whose type the analyser knows, else 0.
u32 zof_hmi_cmd_check_cmd(const zof_hmi_cmd_analys_t *analys, const u8 *data);

// Executes one checked frame and sends the reply; on the analyser's thread. Returns the frame's length; 0 when type or
// parameter are unknown or the frame is too short for its fields; -1 for an operation code above ZOF_HMI_OP_SET.
//
// A read is answered with the frame's codes and request fields and the value. ZOF_HMI_FAIL from a handler, and every
// write, are answered with the same and the acknowledgement, if `resend_en` is set. ZOF_HMI_SILENT: no answer.
// ZOF_HMI_AGAIN: the handler runs once more after the answer. A row without the requested handler is silent.
s32 zof_hmi_cmd_rev_analys(zof_hmi_cmd_analys_t *analys, const u8 *data, u32 size);

// Installs a function that sees every write of a host to views and controls after it was executed, whatever its result;
// null removes it. The records are valid during the call. Graphics thread.
typedef void (*zof_hmi_written_fn)(const zof_hmi_cmd_type_t *type, const zof_hmi_param_type_t *param,
                                   const void *type_param, const void *req_param, const void *value_param);
void zof_hmi_cmd_on_write(zof_hmi_written_fn fn);

// Installs a function that is called after each command of the graphics thread and its answer; null removes it.
void zof_hmi_cmd_on_end(void (*fn)(void));

// Returns ZOF_TRUE while the graphics thread executes a command of the host.
zof_bool zof_hmi_cmd_running(void);

// Sends a frame that no host asked for, with the parameter's current value. Keys have real lengths; a null record adds
// no bytes. Does nothing for a key without a row.
void zof_hmi_cmd_read_send(zof_hmi_cmd_analys_t *analys, const u8 *type_key, void *type_param, const u8 *param_key,
                           void *req_param);

// Frames the `n` bytes at the analyser's `send_cursor` and sends them.
void zof_hmi_cmd_send_data(zof_hmi_cmd_analys_t *analys, u8 op, u32 n);

// Appends a checked frame to the graphics thread's queue and wakes that thread; any thread. A frame that does not fit
// is lost and logged.
void zof_hmi_cmd_ui_data_write(const u8 *data, u32 size);

// Executes what is in the queue; graphics thread.
void zof_hmi_cmd_ui_data_run(void);

// The link's receive callback: `data` is the tail that the last call kept, followed by the new bytes. Executes or
// queues every complete frame at once; frames need no silence between them. Noise is skipped byte by byte. A partial
// frame at the end goes back to the link as the next tail, and expires when its rest does not come within
// ZOF_HMI_KEPT_MS of a silence. If `data` is the tail alone, the line has fallen silent: with a CRC, whole frames after
// an incomplete head are then taken. Waits for room in the queue, at most a second.
void zof_hmi_recive_data_handle(u8 *data, u32 size, void *arg);

ZOF_C_END

#endif
