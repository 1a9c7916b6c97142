// The library for another language, or for a host that loads it at run time: a table of functions in C.
//
// A host opens the shared library, looks up DllGetClassObject, and asks it for NOLSCHED_C_CLASS and
// NOLSCHED_C1_INTERFACE: it gives a const NolSchedC1*, good as long as the library is loaded; its code stays
// mapped, closed or not, as long as a thread lives that has called it. Nothing else of the library is needed,
// and nothing depends on the compiler that has made it. A later library adds functions at the end, which
// `size` tells; what is not of this form has an interface of another name beside this one.
//
// Call order: InstallServices; a record (InitNew, or SetColumn for each column and InitEdit), a notifier and
// the tabs; LoadData of each tab; acts; IsTabValid of each tab; SaveData of each; the host stores the entry's
// own row and gives a new one its Id; SaveNolOverrides; SetColumn of IsNew to "N". At the end Release of all
// handles and InstallServices with a null pointer.
//
// Every function but LastFailure gives a NolSchedResult; nothing is ever thrown. Texts are UTF-8 and end with
// a zero. A text that is handed out lives until the thread's next call of any function here, a text that is
// given is copied. What a call would hand out is left alone where it fails. A record, its notifier and its
// tabs are used on one thread.
#ifndef NOLSCHEDCTLS_LIBRARY_C_INTERFACE_H
#define NOLSCHEDCTLS_LIBRARY_C_INTERFACE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define NOLSCHED_C_CLASS "NolSchedC"
#define NOLSCHED_C1_INTERFACE "NolSchedC1"

enum NolSchedResult {
    NOLSCHED_OK = 0,
    NOLSCHED_NO = 1,            // not valid; no user could do it; beyond the last one
    NOLSCHED_BAD_POINTER = -3,  // a text, a call-back or the place for a result is missing
    NOLSCHED_BAD_HANDLE = -4,   // released, never handed out, or of another kind
    NOLSCHED_BAD_NAME = -5,     // there is no such class, column, field, property or act
    NOLSCHED_BAD_VALUE = -6,    // a text that is no UTF-8, or that the column or field cannot hold
    NOLSCHED_BAD_ORDER = -7,    // another call comes first
    NOLSCHED_HOST_FAILED = -8,  // a call-back failed, or answered what makes no sense
    NOLSCHED_FAILED = -9        // anything else
};

// A record, a notifier, a tab or, within a call-back, its answer. Never 0, and never given again.
typedef uint64_t NolSchedHandle;

// A call-back that is asked for something. It answers by NewRow and Give, and gives NOLSCHED_OK; anything
// else is a failure, which the column "Failure" of its answer may explain. `text` lives until it returns.
typedef int32_t (*NolSchedAsked)(void* host, const char* text, NolSchedHandle answer);

// The host's services. Each that is null is served in memory as MemoryProvider does it. They are called on
// the threads that call the library.
typedef struct NolSchedServices {
    size_t size;              // of this struct, as the host knows it
    void* host;               // given to each call-back
    NolSchedAsked Execute;    // a statement; no answer
    NolSchedAsked Query;      // a SELECT; a row for each row, of its columns under their names
    NolSchedAsked Literal;    // a text; "Literal": as it stands in a statement. Null: quotes are doubled
    NolSchedAsked Documents;  // a document type's name; rows of "Id" and "Name" as a user should find them
    NolSchedAsked Settings;   // no text; a row of the user's settings under their names
    NolSchedAsked Now;        // no text; "Now" as 2026-03-02T09:05:00
    NolSchedAsked DateOrder;  // no text; "Order": MDY, DMY or YMD
    NolSchedAsked Report;     // what a failed insert of an override says; no answer
    // A box to show; flags 16 a stop sign, 48 an exclamation mark. Gives NOLSCHED_OK.
    int32_t (*Message)(void* host, const char* text, int32_t flags, const char* title);
} NolSchedServices;

enum NolSchedEvent {
    NOLSCHED_CHANGED = 1,        // the document, also while tabs load; no tab and no name
    NOLSCHED_TAB_SHOWN = 2,      // a tab asks to come to the front; its name is a study kind's
    NOLSCHED_FIELD_CHANGED = 3,  // a screen should show the field of that name again
    NOLSCHED_FOCUS_MOVED = 4,    // to the field of that name
    NOLSCHED_BEEP = 5            // the field of that name refused a key
};

// Hears what happens to the tabs that a notifier joins: of fields from the end of their tab's LoadData on.
// May call anything here, and release anything.
typedef void (*NolSchedHeard)(void* host, int32_t event, NolSchedHandle tab, const char* name);

typedef struct NolSchedC1 {
    size_t size;
    uint32_t version;            // of this table: 1
    const char* libraryVersion;  // "1.0.0"

    // What the thread's last call that did not give NOLSCHED_OK says; lives until the next such call.
    const char* (*LastFailure)(void);

    // Copies the services and replaces those of the process; null takes them away. The call-backs are good
    // until then, and on other threads until their next call. NOLSCHED_BAD_VALUE for a size that is the end
    // of no call-back.
    int32_t (*InstallServices)(const NolSchedServices* services);
    // Of a call-back's answer, until it returns: begins the next row (the first begins by itself), and puts a
    // column into the row, without a value for a null text.
    int32_t (*NewRow)(NolSchedHandle answer);
    int32_t (*Give)(NolSchedHandle answer, const char* column, const char* text);

    // Ends the handle at once, and what it stands for when nothing uses that any more: a loaded tab keeps its
    // record, and a call that runs keeps all. A released notifier calls nobody back.
    int32_t (*Release)(NolSchedHandle handle);

    int32_t (*CreateRecord)(NolSchedHandle* record);
    int32_t (*InitNew)(NolSchedHandle record, int32_t isImmediate, int32_t groupId, const char* name);
    // Takes the columns as they have been set, of which only NextRunDate, LastRunDate, the overrides' flags
    // and IsNew may lack, and reads the override rows. What fails may be tried again.
    int32_t (*InitEdit)(NolSchedHandle record);
    // The columns of the entry's row in their order, then HomOvr, PlmOvr, RfcOvr, VcsOvr and IsNew ("Y" or
    // "N"). NOLSCHED_NO beyond the last.
    int32_t (*ColumnName)(int32_t index, const char** name);
    // Found without regard to case. Dates are 2026-03-02T09:05:00; null stands for 0, no text or "N".
    int32_t (*SetColumn)(NolSchedHandle record, const char* column, const char* text);
    // As DBFirstDateTime and DBFinalDateTime, which are no columns to count or set, it gives what the host
    // stores as FirstDateTime and FinalDateTime: an immediate entry's first is the moment of the call.
    int32_t (*GetColumn)(NolSchedHandle record, const char* column, const char** text);
    // A column of NOL_Override of the override at that index, which counts from 0; of a number without a
    // value -1 as a tab saves it, 0 as InitEdit reads it. NOLSCHED_NO beyond the last.
    int32_t (*GetOverride)(NolSchedHandle record, int32_t index, const char* column, const char** text);
    // NOLSCHED_HOST_FAILED if a statement fails, told once all inserts have been tried, each failure in a
    // line of its own: the host rolls back.
    int32_t (*SaveNolOverrides)(NolSchedHandle record);

    int32_t (*CreateNotifier)(NolSchedHeard heard, void* host, NolSchedHandle* notifier);

    // By class name or program identifier: XNolSchedGenTab, XNolScheduleTab, XNolSchedHomOvr,
    // XNolSchedPlmOvr, XNolSchedRfcOvr, XNolSchedVcsOvr.
    int32_t (*CreateTab)(const char* name, NolSchedHandle* tab);
    int32_t (*LoadData)(NolSchedHandle tab, NolSchedHandle record, NolSchedHandle notifier);  // 0: nobody
    // NOLSCHED_NO if it is not, which the tab has told by a message under the title.
    int32_t (*IsTabValid)(NolSchedHandle tab, const char* title);
    int32_t (*SaveData)(NolSchedHandle tab);
    int32_t (*SaveState)(NolSchedHandle tab);  // after the entry is stored: what the pickers remember

    // The fields in tab order, from index 0 on. NOLSCHED_NO beyond the last.
    int32_t (*FieldName)(NolSchedHandle tab, int32_t index, const char** name);
    // A property: "kind" (check box, list, text box, label, frame, date, time, picker, purge, download);
    // "caption", "&" before the mnemonic; "text", what a user reads or types there; "value" (a tick 1 or 0,
    // an index, 2026-03-02, 22:30, a document's id, a code); "visible" and "enabled", Y or N, both with its
    // frames; "focused", Y or N; "frame", the name of the one that holds it; "refusal", why the typed text
    // cannot be taken; "left" and "width" in twips. Empty where a kind has none.
    int32_t (*GetField)(NolSchedHandle tab, const char* field, const char* property, const char** text);
    // What a user may choose there, from index 0 on; of dates and times the bounds. NOLSCHED_NO beyond.
    int32_t (*GetEntry)(NolSchedHandle tab, const char* field, int32_t index, const char** text);
    // A user's act: click (without text), pick, type, paste, date or time. NOLSCHED_NO, and the field as it
    // was, for what a user could not do.
    int32_t (*Act)(NolSchedHandle tab, const char* field, const char* act, const char* text);
} NolSchedC1;

#ifdef __cplusplus
}
#endif

#endif
