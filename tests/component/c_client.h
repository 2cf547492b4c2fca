#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/* Creates a CTag and a CTags, sets and reads a property, and is told a failure. Gives what was not as the layout
   promises, or null. The classes are told by the 16 bytes of their identifiers. */
const char* RunClientInC(const char* path, const unsigned char* tag_class, const unsigned char* tags_class);

#ifdef __cplusplus
}
#endif
