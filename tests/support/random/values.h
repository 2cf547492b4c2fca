#pragma once

#include <array>
#include <deque>
#include <string_view>

#include "component/description.h"
#include "tests/support/foreign_objects.h"
#include "tests/support/random/choices.h"
#include "tests/support/random/objects.h"

namespace zef::test {

/// Arguments of calls: fitting ones, unfitting ones, references of all sorts, and objects of others. A text never names
/// a file outside of the working folder.
class RandomValues {
 public:
  RandomValues(Choices& choices, RandomObjects& objects);
  /// Objects of others may live on only here.
  ~RandomValues() { Forget(); }
  RandomValues(const RandomValues&) = delete;
  RandomValues& operator=(const RandomValues&) = delete;

  /// An argument for a type, which it usually fits; null for none. Good until `Forget`.
  VARIANT Argument(const component::Type* type);
  std::string_view Name();
  /// What arguments refer to is let go.
  void Forget() { kept_.clear(); }
  /// Whether the library has given back all references to objects of others. Only after `Forget`.
  bool NothingIsHeld() const;

 private:
  /// One that lets go of an object of the library while that looks at it.
  class Meddler final : public ForeignObject {
   public:
    explicit Meddler(RandomObjects& objects) : objects_(objects) {}
    HRESULT QueryInterface(REFIID riid, void** object) override {
      objects_.Drop();
      return ForeignObject::QueryInterface(riid, object);
    }

   private:
    RandomObjects& objects_;
  };

  Variant Any();
  Variant Fitting(const component::Type& type);
  Variant Text();
  Variant Decimal();
  Variant Array();
  Variant Foreign();
  Variant Reference(Variant&& to);
  Variant& Keep(Variant&& value) { return kept_.emplace_back(std::move(value)); }

  Choices& choices_;
  RandomObjects& objects_;
  ForeignObject plain_;
  BoastingObject boasting_;
  EmptyHandedObject empty_handed_;
  Meddler meddler_;
  std::array<ForeignObject*, 4> foreign_{&plain_, &boasting_, &empty_handed_, &meddler_};
  std::deque<Variant> kept_;  ///< the places do not move
};

}  // namespace zef::test
