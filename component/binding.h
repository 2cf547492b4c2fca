#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/call.h"
#include "component/crossing.h"
#include "session/property.h"

/// Members of a description from members of the C++ classes. Each states its name and types, and a C++ member of others
/// does not compile.
namespace zef::component {

// Ways of passing an argument, around its type.

template <class T>
struct ByRef {};
template <class T, Long Default = 0>
struct Optional {};

template <class T>
struct Passing {
  using Held = T;
  static constexpr bool kByReference = false;
  static constexpr bool kOptional = false;
  static constexpr Long kDefault = 0;
};
template <class T>
struct Passing<ByRef<T>> : Passing<T> {
  static constexpr bool kByReference = true;
};
template <class T, Long Default>
struct Passing<Optional<T, Default>> : Passing<T> {
  static constexpr bool kOptional = true;
  static constexpr Long kDefault = Default;
};

/// True if a C++ type is the one that a description states. Stored enumerations are plain integers in the records.
template <class Stated, class Actual>
inline constexpr bool kSame = std::is_same_v<Stated, Actual> ||
                              (std::is_enum_v<Stated> && std::is_same_v<Actual, Long>);

template <class Stated>
constexpr Type TypeOf() {
  if constexpr (std::is_void_v<Stated>) {
    return {};
  } else {
    return Crossing<Stated>::kType;
  }
}

/// The object that a call is for.
template <class T>
struct SelfOf {
  static T& In(const Call& call) { return *static_cast<T*>(call.object.address); }
};

/// One argument of a running call: converted at its beginning, given back at its end if the member may change it.
template <class Stated, class Parameter>
class Passed {
  using How = Passing<Stated>;
  using Held = typename How::Held;
  using Kept = std::remove_cvref_t<Parameter>;

 public:
  static constexpr bool kGivenBack =
      std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

 private:
  static_assert(kSame<Held, Kept>, "the description states another type of argument");
  static_assert(How::kByReference || !kGivenBack, "the member changes an argument that is described as a value");
  static constexpr bool kReferenceIsExact = How::kByReference && Crossing<Held>::kType.kind != VT_VARIANT;
  static_assert(kReferenceIsExact || !kGivenBack, "a variable of any kind cannot be written back");

 public:
  Passed(const Call& call, std::size_t place) : variant_(call.arguments[place]), value_(In(place)) {}

  Parameter Pass() { return static_cast<Parameter>(value_); }
  void GiveBack() const {
    if constexpr (kGivenBack) {
      if (variant_ == nullptr) return;
      VARIANT value{};
      Crossing<Held>::Out(value, value_);
      StoreThrough(*variant_, value);
    }
  }

 private:
  Kept In(std::size_t place) const {
    if (variant_ == nullptr) return Default();
    try {
      if constexpr (kReferenceIsExact) CheckReference(*variant_, Crossing<Held>::kType.kind);
      return static_cast<Kept>(Crossing<Held>::In(*variant_));
    } catch (const ConversionFailure& failure) {
      throw ArgumentFailure(failure.result, place);
    }
  }
  static Kept Default() {
    if constexpr (std::is_same_v<Kept, Long>) {
      return How::kDefault;
    } else {
      static_assert(How::kDefault == 0, "only an integer has a default of its own");
      return Kept();
    }
  }
  const VARIANT* variant_;
  Kept value_;
};

template <class Stated>
struct Returned {
  template <class Actual>
  static void Out(const Call& call, Actual&& value) {
    static_assert(kSame<Stated, std::remove_cvref_t<Actual>>, "the description states another type of result");
    if (call.result != nullptr) Crossing<Stated>::Out(*call.result, value);
  }
};

/// Calls a C++ function of an object with the arguments of a description.
template <class T, auto Function, class Signature, class Parameters>
struct Bound;
template <class T, auto Function, class Result, class... Stated, class... Parameters>
struct Bound<T, Function, Result(Stated...), std::tuple<Parameters...>> {
  static_assert(sizeof...(Stated) == sizeof...(Parameters), "the description states another number of arguments");

  static void Run(const Call& call) { Run(call, std::index_sequence_for<Stated...>()); }

 private:
  template <std::size_t... I>
  static void Run(const Call& call, std::index_sequence<I...>) {
    std::tuple<Passed<Stated, Parameters>...> passed{Passed<Stated, Parameters>(call, I)...};
    decltype(auto) self = SelfOf<T>::In(call);
    const auto give_back = [&] { (std::get<I>(passed).GiveBack(), ...); };
    const auto run = [&]() -> decltype(auto) { return std::invoke(Function, self, std::get<I>(passed).Pass()...); };
    try {
      if constexpr (std::is_void_v<Result>) {
        static_assert(std::is_void_v<decltype(run())>, "the description states no result");
        run();
      } else {
        Returned<Result>::Out(call, run());
      }
    } catch (...) {
      give_back();  // what a member has written stays written
      throw;
    }
    give_back();
  }
};

template <class F>
struct ParametersOf;
template <class R, class C, class... P>
struct ParametersOf<R (C::*)(P...)> {
  using Types = std::tuple<P...>;
};
template <class R, class C, class... P>
struct ParametersOf<R (C::*)(P...) const> : ParametersOf<R (C::*)(P...)> {};
template <class R, class C, class... P>
struct ParametersOf<R (C::*)(P...) const noexcept> : ParametersOf<R (C::*)(P...)> {};
/// A free function around an object of the class.
template <class R, class C, class... P>
struct ParametersOf<R (*)(C, P...)> {
  using Types = std::tuple<P...>;
};

template <class T>
struct HeldBy {
  using Type = typename T::Held;
};
template <class T>
requires(!requires { typename T::Held; }) struct HeldBy<T> {
  using Type = T;
};

template <class Signature, class Parameters>
struct ArgumentsOf;
template <class Result, class... Stated, class... Parameters>
struct ArgumentsOf<Result(Stated...), std::tuple<Parameters...>> {
  template <class... Names>
  static constexpr void Describe(Member& member, Names... names) {
    static_assert(sizeof...(Names) == sizeof...(Stated), "every argument has a name");
    member.type = TypeOf<Result>();
    (Add<Stated, Parameters>(member, names), ...);
  }

 private:
  template <class One, class Parameter>
  static constexpr void Add(Member& member, std::string_view name) {
    using How = Passing<One>;
    Argument& argument = member.arguments[member.argument_count++];
    argument.name = name;
    argument.type = TypeOf<typename How::Held>();
    argument.type.by_reference = How::kByReference;
    argument.given_back = Passed<One, Parameter>::kGivenBack;
    argument.optional = How::kOptional;
    argument.default_number = How::kDefault;
  }
};

/// The name of a member in C++, out of how the compiler spells this function.
template <auto Member>
constexpr std::string_view SpelledName() {
  constexpr std::string_view kValue = "Member = ";
  std::string_view spelled = __PRETTY_FUNCTION__;
  spelled.remove_prefix(spelled.find(kValue) + kValue.size());
  spelled = spelled.substr(0, spelled.find_first_of(";]"));
  return spelled.substr(spelled.rfind(':') + 1);
}

/// Does not compile for a row that names another member than it leads to. A free function may have any name.
template <auto Member>
constexpr void RequireOwnName(std::string_view name, std::string_view before = {}) {
  if constexpr (std::is_member_pointer_v<decltype(Member)>) {
    const std::string_view spelled = SpelledName<Member>();
    const bool own = spelled.starts_with(before) && spelled.substr(before.size()) == name;
    if (!own) throw std::logic_error("the row names another member");
  }
}

/// The members of one class.
template <class T>
struct Members {
  /// A variable that is a field of its own.
  template <auto Variable, class Stated>
  static constexpr Member Field(std::string_view name) {
    return Variables<Variable, Stated>(name, Kind::Field);
  }
  /// A variable that is shown as a property with get and let, or set.
  template <auto Variable, class Stated>
  static constexpr Member Property(std::string_view name) {
    return Variables<Variable, Stated>(name, Kind::Property);
  }
  /// A property of two C++ functions.
  template <auto Get, auto Set, class Stated>
  static constexpr Member Property(std::string_view name) {
    RequireOwnName<Set>(name, "Set");
    Member member = ReadOnly<Get, Stated()>(name);
    member.put = &Bound<T, Set, void(Stated), typename ParametersOf<decltype(Set)>::Types>::Run;
    return member;
  }
  /// A property with get alone, perhaps with arguments.
  template <auto Get, class Signature, class... Names>
  static constexpr Member ReadOnly(std::string_view name, Names... arguments) {
    Member member = Function<Get, Signature>(name, arguments...);
    member.kind = Kind::Property;
    return member;
  }
  template <auto Call, class Signature, class... Names>
  static constexpr Member Function(std::string_view name, Names... arguments) {
    RequireOwnName<Call>(name);
    using Parameters = typename ParametersOf<decltype(Call)>::Types;
    Member member{.name = name, .get = &Bound<T, Call, Signature, Parameters>::Run};
    ArgumentsOf<Signature, Parameters>::Describe(member, std::string_view(arguments)...);
    return member;
  }

 private:
  template <auto Variable, class Stated>
  struct Sides {
    using Actual = typename HeldBy<std::remove_cvref_t<decltype(std::declval<T&>().*Variable)>>::Type;
    static_assert(kSame<Stated, Actual>, "the description states another type");

    static void Get(const Call& call) {
      if (call.result != nullptr)
        Crossing<Stated>::Out(*call.result, static_cast<const Actual&>(SelfOf<T>::In(call).*Variable));
    }
    static void Put(const Call& call) {
      Passed<Stated, const Actual&> passed(call, 0);
      SelfOf<T>::In(call).*Variable = passed.Pass();
    }
  };

  template <auto Variable, class Stated>
  static constexpr Member Variables(std::string_view name, Kind kind) {
    RequireOwnName<Variable>(name);
    return {.name = name,
            .kind = kind,
            .type = TypeOf<Stated>(),
            .get = &Sides<Variable, Stated>::Get,
            .put = &Sides<Variable, Stated>::Put};
  }
};

}  // namespace zef::component
