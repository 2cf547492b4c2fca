#pragma once

namespace zef::component {

/// The count of what keeps the library loaded: objects that clients hold, factories, and locks. The one thing that
/// objects of different threads share.
void ObjectBegins();
void ObjectEnds();
bool NothingLives();

}  // namespace zef::component
