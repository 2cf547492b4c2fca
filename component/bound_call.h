#pragma once

#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/call.h"
#include "component/crossing.h"
#include "component/passing.h"

/// Calls of C++ functions with the arguments that a description states.
namespace zef::component {

/// The object that a call is for.
template <class T>
struct SelfOf {
  static T& In(const Call& call) { return *static_cast<T*>(call.object.address); }
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

}  // namespace zef::component
