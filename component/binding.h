#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/bound_call.h"
#include "component/crossing.h"
#include "component/own_name.h"
#include "component/passing.h"

/// Members of a description from members of the C++ classes. Each states its name and types, and a C++ member of others
/// does not compile.
namespace zef::component {

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
