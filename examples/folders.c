/* The folders at the root of a database, in plain C: folders LIBRARY DATABASE. */
#include <dlfcn.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The layout of what crosses the boundary, as far as this program needs it. */

typedef struct {
  uint32_t a;
  uint16_t b, c;
  uint8_t d[8];
} Guid;

enum { kEmpty = 0, kLong = 3, kText = 8, kObject = 9, kTruth = 11 };
enum { kMethod = 1, kGet = 2 };

typedef struct Object Object;

typedef struct {
  uint16_t kind, reserved[3];
  union {
    int32_t number;
    int16_t truth; /* -1 or 0 */
    uint16_t* text;
    Object* object;
    void* record[2];
  } as;
} Variant;

typedef struct {
  Variant* arguments; /* from last to first */
  int32_t* names;
  uint32_t count, named;
} Parameters;

typedef struct {
  uint16_t code, reserved;
  uint16_t *source, *description, *help_file;
  uint32_t help_context;
  void *more, *deferred;
  int32_t scode;
} Told;

/* The table of an object that can be called by names. */
typedef struct {
  int32_t (*query_interface)(Object*, const Guid*, void**);
  uint32_t (*add_reference)(Object*);
  uint32_t (*release)(Object*);
  int32_t (*type_count)(Object*, uint32_t*);
  int32_t (*type_info)(Object*, uint32_t, uint32_t, void**);
  int32_t (*numbers_of_names)(Object*, const Guid*, uint16_t**, uint32_t, uint32_t, int32_t*);
  int32_t (*invoke)(Object*, int32_t, const Guid*, uint32_t, uint16_t, Parameters*, Variant*, Told*, uint32_t*);
} Calls;
struct Object {
  const Calls* calls;
};

/* The table of a factory. */
typedef struct Factory Factory;
typedef struct {
  int32_t (*query_interface)(Factory*, const Guid*, void**);
  uint32_t (*add_reference)(Factory*);
  uint32_t (*release)(Factory*);
  int32_t (*create)(Factory*, void*, const Guid*, void**);
} FactoryCalls;
struct Factory {
  const FactoryCalls* calls;
};
typedef int32_t GetClassObject(const Guid*, const Guid*, void**);

static const Guid kNone = {0, 0, 0, {0}};
static const Guid kFactory = {1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static const Guid kDispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
/* The classes, as in their registration files; the last two digits tell them apart. */
static const Guid kSession = {0x2B7C9E41, 0x5A1E, 0x4D3B, {0x9C, 0x42, 0x7E, 0x15, 0xB0, 0x6F, 0, 0x01}};
static const Guid kFolders = {0x2B7C9E41, 0x5A1E, 0x4D3B, {0x9C, 0x42, 0x7E, 0x15, 0xB0, 0x6F, 0, 0x13}};

/* A text for the library: length in bytes in front, a zero behind. ASCII is enough here. */
static Variant new_text(const char* ascii) {
  const uint32_t length = (uint32_t)strlen(ascii), bytes = 2 * length;
  char* const block = malloc(8 + bytes + 2);
  if (block == NULL) abort();
  memcpy(block + 4, &bytes, sizeof bytes);
  Variant made = {kText, {0}, {0}};
  made.as.text = (uint16_t*)(void*)(block + 8);
  for (uint32_t i = 0; i <= length; ++i) made.as.text[i] = (unsigned char)ascii[i];
  return made;
}

static void free_text(uint16_t* text) {
  if (text != NULL) free((char*)text - 8);
}

static void print_text(FILE* out, const uint16_t* text) {
  for (; text != NULL && *text != 0; ++text) fputc(*text < 0x80 ? *text : '?', out);
  fputc('\n', out);
}

/* Calls a member with arguments from last to first, and frees those that are texts. A failure ends the program. */
static Variant call(Object* object, const char* name, uint16_t flags, Variant* arguments, uint32_t count) {
  Variant wide = new_text(name), result = {kEmpty, {0}, {0}};
  Parameters parameters = {arguments, NULL, count, 0};
  Told told = {0};
  int32_t number = -1;
  int32_t outcome = object->calls->numbers_of_names(object, &kNone, &wide.as.text, 1, 0, &number);
  if (outcome >= 0) outcome = object->calls->invoke(object, number, &kNone, 0, flags, &parameters, &result, &told, NULL);
  free_text(wide.as.text);
  for (uint32_t i = 0; i < count; ++i) {
    if (arguments[i].kind == kText) free_text(arguments[i].as.text);
  }
  if (outcome >= 0) return result;
  /* A number of the run time stands in the low half; any other is the provider's own. */
  const int is_run_time = ((unsigned)told.scode & 0xFFFF0000u) == 0x800A0000u;
  fprintf(stderr, "%s: result %08X, number %d: ", name, (unsigned)outcome,
          is_run_time ? told.scode & 0xFFFF : told.scode);
  print_text(stderr, told.description);
  exit(1);
}

static Object* create(GetClassObject* get_class_object, const Guid* identifier) {
  void *factory = NULL, *made = NULL;
  if (get_class_object(identifier, &kFactory, &factory) < 0) return NULL;
  ((Factory*)factory)->calls->create(factory, NULL, &kDispatch, &made);
  ((Factory*)factory)->calls->release(factory);
  return made;
}

static void print_folders(Object* folders) {
  const int32_t count = call(folders, "Count", kGet, NULL, 0).as.number;
  for (int32_t i = 1; i <= count; ++i) {
    Variant place = {kLong, {0}, {0}};
    place.as.number = i;
    Object* const folder = call(folders, "ItemByIdx", kGet, &place, 1).as.object;
    const Variant name = call(folder, "Name", kGet, NULL, 0);
    print_text(stdout, name.as.text);
    free_text(name.as.text);
    folder->calls->release(folder);
  }
}

int main(int count, char** words) {
  _Static_assert(sizeof(Variant) == 24 && offsetof(Variant, as) == 8 && sizeof(Told) == 64, "the published layout");
  if (count != 3) return 2;
  void* const library = dlopen(words[1], RTLD_NOW);
  void* const entry = library == NULL ? NULL : dlsym(library, "DllGetClassObject");
  if (entry == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  GetClassObject* get_class_object;
  memcpy(&get_class_object, &entry, sizeof entry); /* C has no conversion from objects to functions */

  Object* const session = create(get_class_object, &kSession);
  Object* const folders = create(get_class_object, &kFolders);
  if (session == NULL || folders == NULL) return 1;
  Variant connection[] = {new_text(""), new_text(""), new_text(words[2])}; /* password, user, file */
  call(session, "Connect2Database", kMethod, connection, 3);
  Variant target = {kObject, {0}, {0}};
  target.as.object = folders;
  if (call(session, "LoadRootFolders", kMethod, &target, 1).as.truth) print_folders(folders);
  folders->calls->release(folders);
  session->calls->release(session);
  return 0;
}
