/* A client in plain C that knows the binary layout and nothing of this project's headers. */
#include "tests/component/c_client.h"

#include <dlfcn.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

typedef struct {
  uint16_t kind, reserved[3];
  union {
    int32_t number;
    void* pointer;
    uint64_t words[2];
  } value;
} Variant;

typedef struct {
  Variant* arguments;
  int32_t* named;
  uint32_t count, named_count;
} Parameters;

typedef struct {
  uint16_t code, reserved;
  uint16_t *source, *description, *help_file;
  uint32_t help_context;
  void *reserved_pointer, *fill_in;
  int32_t scode;
} FailureTold;

typedef struct Object Object;
typedef struct {
  int32_t (*query_interface)(Object*, const uint8_t*, void**);
  uint32_t (*add_reference)(Object*);
  uint32_t (*release)(Object*);
  int32_t (*type_info_count)(Object*, uint32_t*);
  int32_t (*type_info)(Object*, uint32_t, uint32_t, void**);
  int32_t (*ids_of_names)(Object*, const uint8_t*, const uint16_t**, uint32_t, uint32_t, int32_t*);
  int32_t (*invoke)(Object*, int32_t, const uint8_t*, uint32_t, uint16_t, Parameters*, Variant*, FailureTold*,
                    uint32_t*);
} DispatchTable;
typedef struct {
  int32_t (*query_interface)(Object*, const uint8_t*, void**);
  uint32_t (*add_reference)(Object*);
  uint32_t (*release)(Object*);
  int32_t (*create_instance)(Object*, void*, const uint8_t*, void**);
  int32_t (*lock_server)(Object*, int32_t);
} FactoryTable;
struct Object {
  const void* table;
};

enum { kText = 8, kMethod = 1, kGet = 2, kPut = 4, kException = (int)0x80020009 };

static const uint8_t kNull[16] = {0};
static const uint8_t kDispatch[16] = {0, 4, 2, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
static const uint8_t kFactory[16] = {1, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};

static const DispatchTable* Table(const Object* object) { return object->table; }

static uint16_t* NewText(const char* ascii) {
  const uint32_t length = (uint32_t)strlen(ascii);
  char* const block = calloc(1, 8 + 2 * (length + 1));
  uint16_t* const text = (uint16_t*)(void*)(block + 8);
  const uint32_t bytes = 2 * length;
  memcpy(block + 4, &bytes, sizeof bytes);
  for (uint32_t i = 0; i < length; ++i) text[i] = (uint8_t)ascii[i];
  return text;
}

static void FreeText(void* text) {
  if (text != NULL) free((char*)text - 8);
}

static int IsText(const uint16_t* text, const char* ascii) {
  uint32_t bytes = 0;
  if (text != NULL) memcpy(&bytes, (const char*)text - 4, sizeof bytes);
  if (bytes != 2 * strlen(ascii)) return 0;
  for (uint32_t i = 0; i < bytes / 2; ++i) {
    if (text[i] != (uint8_t)ascii[i]) return 0;
  }
  return 1;
}

static int32_t Number(Object* object, const char* ascii) {
  uint16_t* const name = NewText(ascii);
  const uint16_t* names[1] = {name};
  int32_t number = 0;
  if (Table(object)->ids_of_names(object, kNull, names, 1, 0, &number) != 0) number = -1;
  FreeText(name);
  return number;
}

static const char* PutsAndGetsAText(Object* tag) {
  Variant text = {kText, {0}, {0}};
  Variant result = {0, {0}, {0}};
  int32_t assigned = -3;
  Parameters put = {&text, &assigned, 1, 1};
  Parameters none = {NULL, NULL, 0, 0};
  const int32_t member = Number(tag, "Text");
  if (member != 0x40030001) return "the number of a member";
  text.value.pointer = NewText("Hello");
  if (Table(tag)->invoke(tag, member, kNull, 0, kPut, &put, NULL, NULL, NULL) != 0) return "an assignment";
  FreeText(text.value.pointer);
  if (Table(tag)->invoke(tag, member, kNull, 0, kGet, &none, &result, NULL, NULL) != 0) return "a reading";
  if (result.kind != kText || !IsText(result.value.pointer, "Hello")) return "the text that was read";
  FreeText(result.value.pointer);
  return NULL;
}

static const char* IsToldAFailure(Object* tags) {
  Variant position = {3, {0}, {0}};
  Variant result = {0, {0}, {0}};
  FailureTold told;
  Parameters one = {&position, NULL, 1, 0};
  memset(&told, 0, sizeof told);
  position.value.number = 1;
  if (Table(tags)->invoke(tags, Number(tags, "ItemByIdx"), kNull, 0, kGet, &one, &result, &told, NULL) != kException) {
    return "an exception";
  }
  if (told.scode != (int32_t)0x800A0009) return "the code of a failure";
  if (!IsText(told.source, "ZEFComponents")) return "the source of a failure";
  FreeText(told.source);
  FreeText(told.description);
  return NULL;
}

typedef int32_t GetClassObject(const uint8_t*, const uint8_t*, void**);

static Object* Create(void* library, const uint8_t* class_identifier) {
  GetClassObject* get_class_object = NULL;
  *(void**)&get_class_object = dlsym(library, "DllGetClassObject");
  void* factory = NULL;
  void* made = NULL;
  if (get_class_object == NULL || get_class_object(class_identifier, kFactory, &factory) != 0) return NULL;
  const FactoryTable* const table = ((Object*)factory)->table;
  table->create_instance(factory, NULL, kDispatch, &made);
  table->release(factory);
  return made;
}

const char* RunClientInC(const char* path, const unsigned char* tag_class, const unsigned char* tags_class) {
  void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library == NULL) return "the library";
  Object* const tag = Create(library, tag_class);
  Object* const tags = Create(library, tags_class);
  if (tag == NULL || tags == NULL) return "the creation of an object";
  const char* wrong = PutsAndGetsAText(tag);
  if (wrong == NULL) wrong = IsToldAFailure(tags);
  if (Table(tag)->release(tag) != 0 || Table(tags)->release(tags) != 0) wrong = "the last reference";
  dlclose(library);
  return wrong;
}
