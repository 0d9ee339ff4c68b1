// Events for a host: what users do with controls, which view is shown, and which language. Sent as `control.event`
// frames if `event_en` is set in zofhmi.g. Graphics thread.
#ifndef ZOF_HMI_EVENT_H
#define ZOF_HMI_EVENT_H

#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

// The numbers on the line.
typedef enum {
    ZOF_HMI_EVENT_STATE, // in answers to reads
    ZOF_HMI_EVENT_CLICKED,
    ZOF_HMI_EVENT_LONG_PRESSED,
    ZOF_HMI_EVENT_CHANGED,
    ZOF_HMI_EVENT_READY,
    ZOF_HMI_EVENT_CANCEL,
    ZOF_HMI_EVENT_FOCUSED,
    ZOF_HMI_EVENT_VIEW,
    ZOF_HMI_EVENT_LANGUAGE,
    ZOF_HMI_EVENT_COUNT
} zof_hmi_event_e;

typedef struct {
    zof_event_e event; // of a control; ZOF_EVENT_ALL for none
    const char *name;
    const char *help; // what number and text mean
} zof_hmi_event_row_t;

// By number; documents and host libraries are made from them.
extern const zof_hmi_event_row_t zof_hmi_event_rows[ZOF_HMI_EVENT_COUNT];

// Sends events from now on, also those of controls that exist already. Called after the link has been opened.
void zof_hmi_event_start(void);

// Returns ZOF_TRUE after the start.
zof_bool zof_hmi_event_wanted(void);

// Reports an event of a control if it is in the table, unless a command of the host that is being executed causes it.
void zof_hmi_event_control(u32 view, u32 ctrl, u32 event);

void zof_hmi_event_view(u32 view); // a view is shown
void zof_hmi_event_language(void); // the language has changed

// The next event gets its number, and `control.event` is encoded as this kind until the next call with
// ZOF_HMI_EVENT_STATE.
void zof_hmi_event_number(u8 event);

// Returns the number of the last event that was sent, modulo 256; 0 before the first one.
u8 zof_hmi_event_last(void);

// Fills the value of `control.event`: the event that is being sent, or the present value of the control, with the
// number of the last event.
s32 zof_hmi_event_get(void *type_param, void *req_param, void *value_param);

ZOF_C_END

#endif
