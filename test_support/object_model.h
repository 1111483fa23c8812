#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

/// Tables of what the classes offer to a front end, checked while compiling. A function holds the table of one class:
///
///     ClassModel Seminar() {
///         CREATABLE(clsSeminar);
///         GET(Key, Text);
///         PROPERTY(SemTitel, Text);
///         METHOD(Init, Bool, Int32, Ref<DataSession>);
///         NOT_PUBLIC(DeleteFromDatabase);
///         return model;
///     }
///
/// A type stands for an argument of exactly that type; Optional<T> may be left out, Variable<T> is a variable of the
/// caller. What is asked of a class is asked from outside of it, as a front end would.
namespace test_support {

template <class T>
struct Optional;
template <class T>
struct Variable;

/// The table of one class as the tests see it.
struct ClassModel {
    std::string_view name;
    LumoSeminar::Ref<LumoSeminar::Object> (*create)();  ///< null where a front end cannot create one
    std::vector<std::string_view> members;
    std::vector<std::string_view> not_public;
};

using ClassModels = std::vector<ClassModel>;

ClassModels FrameModel();
ClassModels CatalogueModel();
ClassModels SchedulingModel();
ClassModels EnrolmentModel();
ClassModels WaitlistModel();
ClassModels NeedsModel();

namespace object_model {

/// Turns into a T and nothing else: not from Int32 into a Double, as a value would.
template <class T>
struct Value {
    template <std::same_as<T> U>
    operator U() const;
};
template <class T>
struct VariableOf {
    template <class U>
    requires std::same_as<std::remove_const_t<U>, T>
    operator U&() const;
};

/// Turn into whatever is asked for.
struct AnyValue {
    template <class U>
    operator U() const;
};
struct AnyVariable {
    template <class U>
    operator U&() const;
};

template <class T>
struct Documented {
    using Passed = Value<T>;
    static constexpr bool kOptional = false;
};
template <class T>
struct Documented<Variable<T>> {
    using Passed = VariableOf<T>;
    static constexpr bool kOptional = false;
};
template <class T>
struct Documented<Optional<T>> {
    using Passed = typename Documented<T>::Passed;
    static constexpr bool kOptional = true;
};

template <class... Arguments>
constexpr unsigned kRequired = (0U + ... + (Documented<Arguments>::kOptional ? 0U : 1U));

template <class... Arguments>
constexpr unsigned kCount = sizeof...(Arguments);

/// A reference is of use to a front end that has the class.
template <class T>
constexpr bool kUsable = true;
template <class T>
constexpr bool kUsable<LumoSeminar::Ref<T>> = sizeof(T) > 0;

template <class Call, class Class, class... Passed>
concept Callable = requires(Call call, Class& object, const Passed&... passed) {
    call(object, passed...);
};

template <class Call, class Class, class Result, class... Passed>
concept CallGives = requires(Call call, Class& object, const Passed&... passed) {
    { call(object, passed...) } -> std::same_as<Result>;
};

template <class Call, class Class, class Result, class All, std::size_t... kPosition>
constexpr bool GivesWithFirst(std::index_sequence<kPosition...>) {
    return CallGives<Call, Class, Result, std::tuple_element_t<kPosition, All>...>;
}

template <class Call, class Class, class Result, class... Arguments, std::size_t... kAlso>
constexpr bool GivesWith(std::index_sequence<kAlso...>) {
    using All = std::tuple<typename Documented<Arguments>::Passed...>;
    return (GivesWithFirst<Call, Class, Result, All>(std::make_index_sequence<kRequired<Arguments...> + kAlso>()) && ...);
}

/// Whether the member gives exactly this type with its arguments, and with the optional ones left out one by one.
template <class Class, class Result, class... Arguments, class Call>
constexpr bool Gives(Call) {
    constexpr std::size_t optional = kCount<Arguments...> - kRequired<Arguments...>;
    return kUsable<Result> && GivesWith<Call, Class, Result, Arguments...>(std::make_index_sequence<optional + 1>());
}

template <std::size_t, class T>
using Each = T;

template <class Call, class Class, std::size_t... kPosition>
constexpr bool Takes(std::index_sequence<kPosition...>) {
    return Callable<Call, Class, Each<kPosition, AnyValue>...> || Callable<Call, Class, Each<kPosition, AnyVariable>...>;
}

template <class Call, class Class, std::size_t... kNumber>
constexpr unsigned NumbersTaken(std::index_sequence<kNumber...>) {
    return ((Takes<Call, Class>(std::make_index_sequence<kNumber>()) ? 1U << kNumber : 0U) | ...);
}

/// The numbers of arguments, up to eight of whatever types, that the member can be called with: a bit for each.
template <class Class, class Call>
constexpr unsigned NumbersTaken(Call) {
    return NumbersTaken<Call, Class>(std::make_index_sequence<9>());
}

template <class Class, class Call>
constexpr bool TakesOnly(Call call, unsigned fewest, unsigned most) {
    return NumbersTaken<Class>(call) >> (most + 1) == 0 && (NumbersTaken<Class>(call) & ((1U << fewest) - 1)) == 0;
}

/// Whether outsiders can create one, be it from a thing that they need not name.
template <class Class>
concept CanBeCreated = std::default_initializable<Class> || requires {
    Class({});
};

/// Whether none of these gives outsiders the pass that a constructor asks for.
template <class... Makers>
concept KeepTheirPasses = (!CanBeCreated<LumoSeminar::MadeBy<Makers>> && ...);

template <class Class>
concept Shared = std::derived_from<Class, LumoSeminar::Object> && !std::copyable<Class> && !std::movable<Class>;

template <class Class, class Entry>
concept Walks = requires(Class& list) {
    { *list.NewEnum().begin() } -> std::same_as<LumoSeminar::Ref<Entry>>;
    { list.NewEnum().begin() == list.NewEnum().end() } -> std::same_as<bool>;
    ++list.NewEnum().begin();
};

}  // namespace object_model

}  // namespace test_support

#define MODEL_CALL(member)                                                                                              \
    [](auto& object, auto&&... arguments) -> decltype(object.member(std::forward<decltype(arguments)>(arguments)...)) { \
        return object.member(std::forward<decltype(arguments)>(arguments)...);                                          \
    }

#define MODEL_TABLE(class_name, create)                                                    \
    using Class = LumoSeminar::class_name;                                                 \
    static_assert(test_support::object_model::Shared<Class>, #class_name " is no object"); \
    test_support::ClassModel model = {#class_name, create, {}, {}}

/// The class of the table can be created by a front end.
#define CREATABLE(class_name)                                                                             \
    static_assert(std::default_initializable<LumoSeminar::class_name>, #class_name " cannot be created"); \
    MODEL_TABLE(class_name, [] { return LumoSeminar::Ref<LumoSeminar::Object>(LumoSeminar::New<Class>()); })

/// The class of the table is created by these classes of the library alone.
#define NOT_CREATABLE(class_name, ...)                                                                                \
    static_assert(!test_support::object_model::CanBeCreated<LumoSeminar::class_name>, #class_name " can be created"); \
    static_assert(test_support::object_model::KeepTheirPasses<__VA_ARGS__>, #class_name " can be created");           \
    MODEL_TABLE(class_name, nullptr)

/// An operation: name, result, arguments.
#define METHOD(member, result, ...)                                                                             \
    do {                                                                                                        \
        namespace check = test_support::object_model;                                                           \
        constexpr auto call = MODEL_CALL(member);                                                               \
        static_assert(check::Gives<Class, result __VA_OPT__(, ) __VA_ARGS__>(call),                             \
                      #member "(" #__VA_ARGS__ ") does not give " #result);                                     \
        static_assert(check::TakesOnly<Class>(call, check::kRequired<__VA_ARGS__>, check::kCount<__VA_ARGS__>), \
                      #member " takes more or fewer arguments than (" #__VA_ARGS__ ")");                        \
        model.members.push_back(#member);                                                                       \
    } while (false)

/// A property that can only be read: name, type, arguments.
#define GET(member, type, ...) METHOD(member, type __VA_OPT__(, ) __VA_ARGS__)

/// A property that can be read and let: name, type, optional arguments, which stand behind the value in a let.
#define PROPERTY(member, type, ...)                                                     \
    do {                                                                                \
        namespace check = test_support::object_model;                                   \
        constexpr auto call = MODEL_CALL(member);                                       \
        static_assert(check::Gives<Class, type __VA_OPT__(, ) __VA_ARGS__>(call),       \
                      #member "(" #__VA_ARGS__ ") does not give " #type);               \
        static_assert(check::Gives<Class, void, type __VA_OPT__(, ) __VA_ARGS__>(call), \
                      #member " cannot be let: " #type __VA_OPT__(", ") #__VA_ARGS__);  \
        static_assert(check::TakesOnly<Class>(call, 0, 1 + check::kCount<__VA_ARGS__>), \
                      #member " takes more arguments than its let");                    \
        model.members.push_back(#member);                                               \
    } while (false)

/// The enumerator of a list: a walk over references to entries.
#define ENUMERATOR(entry)                                                           \
    do {                                                                            \
        GET(NewEnum, LumoSeminar::Enumerator<LumoSeminar::entry>);                  \
        static_assert(test_support::object_model::Walks<Class, LumoSeminar::entry>, \
                      "NewEnum does not walk over references to " #entry);          \
    } while (false)

/// A member that the library keeps to itself, or does not have.
#define NOT_PUBLIC(member)                                                                               \
    do {                                                                                                 \
        constexpr auto call = MODEL_CALL(member);                                                        \
        constexpr auto name = [](auto* object) {                                                         \
            return requires { &std::remove_pointer_t<decltype(object)>::member; };                       \
        };                                                                                               \
        static_assert(!name(static_cast<Class*>(nullptr)), #member " is public");                        \
        static_assert(test_support::object_model::NumbersTaken<Class>(call) == 0, #member " is public"); \
        model.not_public.push_back(#member);                                                             \
    } while (false)
