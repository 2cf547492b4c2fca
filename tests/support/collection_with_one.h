#pragma once

#include "session/collections.h"

namespace zef::test {

/// A collection that holds one element, number 99 with the text "from before", to see whether it is emptied.
template <class Element, class Text>
Ref<Collection<Element>> CollectionWithOne(Text Element::*text) {
  auto elements = MakeRef<Collection<Element>>();
  auto element = MakeRef<Element>();
  element->ID = 99;
  (*element).*text = "from before";
  elements->Add(element);
  return elements;
}

}  // namespace zef::test
