#pragma once

namespace zef::component {

/// The count of what keeps the library loaded: objects that clients hold, factories, and locks. The one thing that
/// objects of different threads share.
void ObjectBegins();
void ObjectEnds();
/// A lock of the library as a whole. False, and nothing happens, if there is none to undo: a client that undoes too
/// much must not unload the library under the objects of others.
void Lock();
bool Unlock();
bool NothingLives();

}  // namespace zef::component
