/* A tuner driver in plain C, with hand-made vtables and a layout of its own declared here from its
 * documentation: what it and the program agree on is the contract, not a shared header. It keeps
 * the tuning it was given and answers a request with what it understood of it. */

#include <stdatomic.h>
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

typedef int32_t status_t;
typedef uint16_t wide_t;

#define OK ((status_t)0)
#define NOT_FOUND ((status_t)0x80070490)
#define NO_INTERFACE ((status_t)0x80004002)
#define NULL_POINTER ((status_t)0x80004003)
#define INVALID_ARGUMENT ((status_t)0x80070057)
#define OUT_OF_MEMORY ((status_t)0x8007000E)

/* Identifiers as the bytes that cross. */
typedef struct {
    uint8_t bytes[16];
} guid_t;

static const guid_t CLASS_ID = {{0x01, 0x00, 0xD2, 0xC0, 0x03, 0xC0, 0x04, 0x40, 0x80, 0x05, 0x06,
                                 0x07, 0x08, 0x09, 0x0A, 0x0B}};
static const guid_t UNKNOWN_ID = {{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, 0x00, 0x00,
                                   0x00, 0x00, 0x00, 0x00, 0x46}};

/* Indices of the interfaces in the object and in this list. */
enum {
    DRIVER_INFO,
    DRIVER_CONTROL,
    SET_TUNER,
    SECTION_READER,
    DEVICE_DIALOGS,
    TUNER_STATUS,
    COUNT
};
static const guid_t INTERFACE_IDS[COUNT] = {
    {{0xB1, 0x57, 0xB8, 0x25, 0x9B, 0x13, 0xB3, 0x4D, 0x98, 0xCF, 0xFB, 0xFC, 0xD0, 0xD5, 0x0B,
      0x9E}},
    {{0xCD, 0xA3, 0xB1, 0xAB, 0xE4, 0x52, 0x48, 0x46, 0xB0, 0x59, 0x71, 0x63, 0x56, 0xD2, 0xD4,
      0xF7}},
    {{0x5B, 0x78, 0xD3, 0xCC, 0x91, 0x4C, 0x52, 0x4E, 0xB0, 0x01, 0xF6, 0x8F, 0x40, 0x0F, 0x84,
      0x73}},
    {{0xA2, 0xF5, 0x71, 0x17, 0xEE, 0xF5, 0x38, 0x4C, 0xBA, 0xF2, 0xB9, 0x39, 0xF1, 0xF9, 0x96,
      0x42}},
    {{0x9A, 0xEF, 0x09, 0xF2, 0x0B, 0x66, 0x77, 0x4D, 0xA5, 0x4F, 0xAD, 0x65, 0x9F, 0xF9, 0x71,
      0x75}},
    {{0x7B, 0xBB, 0x8B, 0x22, 0x13, 0x9F, 0x9F, 0x4F, 0xBD, 0x42, 0x85, 0x8B, 0xF0, 0xE4, 0x73,
      0xEC}},
};

typedef struct {
    uint32_t pid;
    uint8_t table_id;
    uint8_t padding[3];
    uint32_t collection_mode;
    uint8_t unused[16];
    uint32_t match_extension;
    uint16_t extension;
    uint8_t rest[66];
} table_request;
_Static_assert(sizeof(table_request) == 100, "the stride of the request array");

typedef struct {
    int32_t count;
    uint8_t** sections;
} section_list;

typedef struct {
    uint32_t frequency;
    uint16_t orbital_position;
    uint16_t padding1;
    uint32_t west_east_flag;
    uint8_t polarization;
    uint8_t modulation;
    uint16_t padding2;
    uint32_t symbol_rate;
    uint8_t fec_inner;
    uint8_t padding3[3];
} satellite_tuning;
_Static_assert(sizeof(satellite_tuning) == 24, "satellite record");

typedef struct {
    uint32_t frequency;
    uint8_t fec_outer;
    uint8_t modulation;
    uint16_t padding1;
    uint32_t symbol_rate;
    uint8_t fec_inner;
    uint8_t padding2[3];
} cable_tuning;
_Static_assert(sizeof(cable_tuning) == 16, "cable record");

typedef struct {
    uint32_t centre_frequency;
    uint8_t bandwidth, constellation, hierarchy, code_rate_hp, code_rate_lp, guard_interval,
        transmission_mode, other_frequency;
} terrestrial_tuning;
_Static_assert(sizeof(terrestrial_tuning) == 12, "terrestrial record");

extern void* TessaviewTaskMemAlloc(size_t bytes);
extern void TessaviewTaskMemFree(void* block);
extern wide_t* TessaviewBstrAlloc(const wide_t* text, size_t units);
extern void TessaviewBstrFree(wide_t* text);
extern size_t TessaviewBstrLength(const wide_t* text);

typedef struct driver driver;
typedef struct {
    const void* vtable;
    driver* owner;
} facet;

struct driver {
    facet facets[COUNT];
    atomic_uint references;
    void* satellite_list;
    wide_t* told; /* what Initialize was given */
    wide_t* satellite;
    satellite_tuning satellite_set;
    cable_tuning cable_set;
    terrestrial_tuning terrestrial_set;
};

static status_t query_interface(facet* self, const guid_t* id, void** object)
{
    if (!object)
        return NULL_POINTER;
    *object = NULL;
    for (int i = 0; i < COUNT; ++i) {
        if (memcmp(id, &INTERFACE_IDS[i], sizeof *id) == 0 ||
            (i == 0 && memcmp(id, &UNKNOWN_ID, sizeof *id) == 0)) {
            atomic_fetch_add(&self->owner->references, 1);
            *object = &self->owner->facets[i];
            return OK;
        }
    }
    return NO_INTERFACE;
}

static uint32_t add_ref(facet* self)
{
    return atomic_fetch_add(&self->owner->references, 1) + 1;
}

static uint32_t release(facet* self)
{
    driver* const owner = self->owner;
    const uint32_t left = atomic_fetch_sub(&owner->references, 1) - 1;
    if (left == 0) {
        TessaviewBstrFree(owner->told);
        TessaviewBstrFree(owner->satellite);
        free(owner);
    }
    return left;
}

/* The three standard slots that every vtable begins with. */
#define STANDARD_SLOTS                                                                             \
    status_t (*query_interface)(facet*, const guid_t*, void**);                                    \
    uint32_t (*add_ref)(facet*);                                                                   \
    uint32_t (*release)(facet*)

static status_t copy_text(wide_t** out, const wide_t* text)
{
    wide_t* const copy = TessaviewBstrAlloc(text, TessaviewBstrLength(text));
    if (!copy)
        return OUT_OF_MEMORY;
    TessaviewBstrFree(*out);
    *out = copy;
    return OK;
}

static status_t give_text(wide_t** out, const wide_t* text, size_t units)
{
    if (!out)
        return NULL_POINTER;
    *out = TessaviewBstrAlloc(text, units);
    return *out ? OK : OUT_OF_MEMORY;
}

/* --- driver information and control --- */

static status_t get_name(facet* self, wide_t** name)
{
    static const wide_t text[] = {'C', ' ', 0x00E9, 0xD83D, 0xDCE1};
    (void)self;
    return give_text(name, text, sizeof text / sizeof *text);
}

static status_t initialize(facet* self, const wide_t* key, const wide_t* user, const wide_t* common)
{
    const wide_t* const parts[] = {key, user, common};
    wide_t text[600];
    size_t units = 0;
    for (int i = 0; i < 3; ++i) {
        const size_t length = TessaviewBstrLength(parts[i]);
        if (units + length + 1 > sizeof text / sizeof *text)
            return INVALID_ARGUMENT;
        memcpy(text + units, parts[i], length * sizeof *text);
        units += length;
        text[units++] = '|';
    }
    TessaviewBstrFree(self->owner->told);
    return give_text(&self->owner->told, text, units);
}

static status_t shut_down(facet* self)
{
    /* A success that tells this slot from the others. */
    return self->owner->satellite_list ? 0x12 : INVALID_ARGUMENT;
}

static status_t get_tuner_type(facet* self, uint16_t* type)
{
    (void)self;
    *type = 3;
    return OK;
}

static status_t set_satellite_list(facet* self, void* manager)
{
    self->owner->satellite_list = manager;
    return OK;
}

/* --- tuning --- */

static status_t set_satellite(facet* self, void* window, const wide_t* satellite,
                              const satellite_tuning* tuning)
{
    if (!window || !tuning)
        return INVALID_ARGUMENT;
    self->owner->satellite_set = *tuning;
    return copy_text(&self->owner->satellite, satellite);
}

static status_t set_cable(facet* self, void* window, const cable_tuning* tuning)
{
    if (!window || !tuning)
        return INVALID_ARGUMENT;
    self->owner->cable_set = *tuning;
    return OK;
}

static status_t set_terrestrial(facet* self, void* window, const terrestrial_tuning* tuning)
{
    if (!window || !tuning)
        return INVALID_ARGUMENT;
    self->owner->terrestrial_set = *tuning;
    return OK;
}

/* The records are given back field by field, so that a field in another place shows. */

static status_t get_satellite(facet* self, wide_t** satellite, satellite_tuning* tuning)
{
    const satellite_tuning* const from = &self->owner->satellite_set;
    if (!self->owner->satellite)
        return NOT_FOUND;
    memset(tuning, 0, sizeof *tuning);
    tuning->frequency = from->frequency + 1;
    tuning->orbital_position = (uint16_t)(from->orbital_position + 1);
    tuning->west_east_flag = from->west_east_flag + 1;
    tuning->polarization = (uint8_t)(from->polarization + 1);
    tuning->modulation = (uint8_t)(from->modulation + 1);
    tuning->symbol_rate = from->symbol_rate + 1;
    tuning->fec_inner = (uint8_t)(from->fec_inner + 1);
    return give_text(satellite, self->owner->satellite,
                     TessaviewBstrLength(self->owner->satellite));
}

static status_t get_cable(facet* self, cable_tuning* tuning)
{
    const cable_tuning* const from = &self->owner->cable_set;
    memset(tuning, 0, sizeof *tuning);
    tuning->frequency = from->frequency + 1;
    tuning->fec_outer = (uint8_t)(from->fec_outer + 1);
    tuning->modulation = (uint8_t)(from->modulation + 1);
    tuning->symbol_rate = from->symbol_rate + 1;
    tuning->fec_inner = (uint8_t)(from->fec_inner + 1);
    return OK;
}

static status_t get_terrestrial(facet* self, terrestrial_tuning* tuning)
{
    const terrestrial_tuning* const from = &self->owner->terrestrial_set;
    tuning->centre_frequency = from->centre_frequency + 1;
    tuning->bandwidth = (uint8_t)(from->bandwidth + 1);
    tuning->constellation = (uint8_t)(from->constellation + 1);
    tuning->hierarchy = (uint8_t)(from->hierarchy + 1);
    tuning->code_rate_hp = (uint8_t)(from->code_rate_hp + 1);
    tuning->code_rate_lp = (uint8_t)(from->code_rate_lp + 1);
    tuning->guard_interval = (uint8_t)(from->guard_interval + 1);
    tuning->transmission_mode = (uint8_t)(from->transmission_mode + 1);
    tuning->other_frequency = (uint8_t)(from->other_frequency + 1);
    return OK;
}

/* --- sections --- */

/* Two "sections": the request as it arrived, and the fields that were found in it. */
static status_t answer(const table_request* request, section_list* result)
{
    const uint8_t fields[] = {request->table_id,
                              (uint8_t)(request->pid >> 8),
                              (uint8_t)request->pid,
                              (uint8_t)request->collection_mode,
                              (uint8_t)request->match_extension,
                              (uint8_t)(request->extension >> 8),
                              (uint8_t)request->extension};
    uint8_t** const sections = TessaviewTaskMemAlloc(2 * sizeof *sections);
    uint8_t* const raw = TessaviewTaskMemAlloc(sizeof *request);
    uint8_t* const found = TessaviewTaskMemAlloc(sizeof fields);
    if (!sections || !raw || !found) {
        TessaviewTaskMemFree(sections);
        TessaviewTaskMemFree(raw);
        TessaviewTaskMemFree(found);
        return OUT_OF_MEMORY;
    }
    memcpy(raw, request, sizeof *request);
    memcpy(found, fields, sizeof fields);
    sections[0] = raw;
    sections[1] = found;
    result->sections = sections;
    result->count = 2;
    return OK;
}

static status_t read_tables(facet* self, uint32_t count, const table_request* requests,
                            uint32_t wait_limit, section_list* results)
{
    (void)self;
    if (wait_limit != 30)
        return INVALID_ARGUMENT;
    for (uint32_t i = 0; i < count; ++i) {
        results[i].count = 0;
        results[i].sections = NULL;
        /* Nothing is broadcast on the PID of null packets. */
        const status_t status = requests[i].pid == 0x1FFF ? OK : answer(&requests[i], &results[i]);
        if (status < 0)
            return status;
    }
    return OK;
}

/* --- windows and status: success values tell the slots apart --- */

static status_t show_tuning(facet* self, void* window)
{
    (void)self;
    return window ? 0x51 : INVALID_ARGUMENT;
}

static status_t show_settings(facet* self, void* window)
{
    (void)self;
    return window ? 0x52 : INVALID_ARGUMENT;
}

static status_t show_streaming(facet* self, void* window)
{
    (void)self;
    return window ? 0x53 : INVALID_ARGUMENT;
}

static status_t reserved_reader_slot(facet* self)
{
    (void)self;
    return 0x41;
}

static status_t reserved_status_slot2(facet* self)
{
    (void)self;
    return 0x62;
}

static status_t reserved_status_slot3(facet* self)
{
    (void)self;
    return 0x63;
}

static status_t is_locked(facet* self, int32_t* locked)
{
    (void)self;
    *locked = -1;
    return OK;
}

/* Shows what Initialize was told. */
static status_t get_status_text(facet* self, wide_t** text)
{
    if (!self->owner->told)
        return NOT_FOUND;
    return give_text(text, self->owner->told, TessaviewBstrLength(self->owner->told));
}

#define STANDARD query_interface, add_ref, release

static const struct {
    STANDARD_SLOTS;
    status_t (*get_name)(facet*, wide_t**);
} DRIVER_INFO_TABLE = {STANDARD, get_name};

static const struct {
    STANDARD_SLOTS;
    status_t (*initialize)(facet*, const wide_t*, const wide_t*, const wide_t*);
    status_t (*shut_down)(facet*);
    status_t (*get_tuner_type)(facet*, uint16_t*);
    status_t (*set_satellite_list)(facet*, void*);
} DRIVER_CONTROL_TABLE = {STANDARD, initialize, shut_down, get_tuner_type, set_satellite_list};

static const struct {
    STANDARD_SLOTS;
    status_t (*set_satellite)(facet*, void*, const wide_t*, const satellite_tuning*);
    status_t (*set_cable)(facet*, void*, const cable_tuning*);
    status_t (*set_terrestrial)(facet*, void*, const terrestrial_tuning*);
    status_t (*get_satellite)(facet*, wide_t**, satellite_tuning*);
    status_t (*get_cable)(facet*, cable_tuning*);
    status_t (*get_terrestrial)(facet*, terrestrial_tuning*);
} SET_TUNER_TABLE = {STANDARD,      set_satellite, set_cable,      set_terrestrial,
                     get_satellite, get_cable,     get_terrestrial};

static const struct {
    STANDARD_SLOTS;
    status_t (*reserved)(facet*);
    status_t (*read_tables)(facet*, uint32_t, const table_request*, uint32_t, section_list*);
} SECTION_READER_TABLE = {STANDARD, reserved_reader_slot, read_tables};

static const struct {
    STANDARD_SLOTS;
    status_t (*show_tuning)(facet*, void*);
    status_t (*show_settings)(facet*, void*);
    status_t (*show_streaming)(facet*, void*);
} DEVICE_DIALOGS_TABLE = {STANDARD, show_tuning, show_settings, show_streaming};

static const struct {
    STANDARD_SLOTS;
    status_t (*is_locked)(facet*, int32_t*);
    status_t (*reserved2)(facet*);
    status_t (*reserved3)(facet*);
    status_t (*get_status_text)(facet*, wide_t**);
} TUNER_STATUS_TABLE = {STANDARD, is_locked, reserved_status_slot2, reserved_status_slot3,
                        get_status_text};

__attribute__((visibility("default"))) int32_t
TessaviewCreateInstance(const guid_t* class_id, const guid_t* interface_id, void** object);

int32_t TessaviewCreateInstance(const guid_t* class_id, const guid_t* interface_id, void** object)
{
    static const void* const tables[COUNT] = {&DRIVER_INFO_TABLE,    &DRIVER_CONTROL_TABLE,
                                              &SET_TUNER_TABLE,      &SECTION_READER_TABLE,
                                              &DEVICE_DIALOGS_TABLE, &TUNER_STATUS_TABLE};
    if (memcmp(class_id, &CLASS_ID, sizeof *class_id) != 0)
        return NOT_FOUND;
    driver* const made = calloc(1, sizeof *made);
    if (!made)
        return OUT_OF_MEMORY;
    for (int i = 0; i < COUNT; ++i)
        made->facets[i] = (facet){.vtable = tables[i], .owner = made};
    atomic_init(&made->references, 1);
    const status_t status = query_interface(&made->facets[0], interface_id, object);
    release(&made->facets[0]);
    return status;
}
