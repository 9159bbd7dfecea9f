// The root of the object model: TObject, class references, sets and event (method pointer) types.
#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>

#include "rtl/sysutils.h"

namespace rtl {

class TMetaClass;
class TObject;
// A class reference: the per-class descriptor of a TObject descendant (name, parent, constructor,
// published properties). Compared by identity.
using TClass = const TMetaClass*;

class TObject {
public:
    TObject() = default;
    virtual ~TObject() = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;

    static TClass StaticClass();
    virtual TClass ClassType() const;
    const std::string& ClassName() const;
    bool InheritsFrom(TClass cls) const;

    // Runs BeforeDestruction while the whole object is still alive, then deletes it. Prefer this to a
    // plain delete for components, so that notifications see the complete object.
    void Free();
    virtual void BeforeDestruction() {}
};

// Null-safe Free, and FreeAndNil.
inline void Free(TObject* obj) {
    if (obj) obj->Free();
}
template <class T> void FreeAndNil(T*& obj) {
    T* tmp = obj;
    obj = nullptr;
    Free(tmp);
}

// Checked downcasts: Is<T> tests, As<T> raises EInvalidCast "Invalid class typecast" (nil passes).
template <class T> bool Is(const TObject* obj) { return dynamic_cast<const T*>(obj) != nullptr; }
template <class T> T* As(TObject* obj) {
    if (!obj) return nullptr;
    if (auto* t = dynamic_cast<T*>(obj)) return t;
    throw EInvalidCast(SInvalidCast);
}
template <class T> const T* As(const TObject* obj) {
    if (!obj) return nullptr;
    if (auto* t = dynamic_cast<const T*>(obj)) return t;
    throw EInvalidCast(SInvalidCast);
}

// A set of up to 64 enumeration members (the platform's "set of TEnum"). Its ordinal value is the bit
// mask, bit n standing for the member of ordinal n.
template <class E> class TSet {
public:
    constexpr TSet() = default;
    constexpr TSet(std::initializer_list<E> items) {
        for (E e : items) FBits |= Bit(e);
    }
    static constexpr TSet FromBits(uint64_t bits) {
        TSet s;
        s.FBits = bits;
        return s;
    }
    constexpr uint64_t Bits() const { return FBits; }
    constexpr bool Contains(E e) const { return (FBits & Bit(e)) != 0; }
    constexpr bool Empty() const { return FBits == 0; }
    constexpr TSet& Include(E e) {
        FBits |= Bit(e);
        return *this;
    }
    constexpr TSet& Exclude(E e) {
        FBits &= ~Bit(e);
        return *this;
    }
    constexpr TSet operator+(TSet o) const { return FromBits(FBits | o.FBits); }
    constexpr TSet operator-(TSet o) const { return FromBits(FBits & ~o.FBits); }
    constexpr TSet operator*(TSet o) const { return FromBits(FBits & o.FBits); }
    constexpr TSet& operator+=(TSet o) {
        FBits |= o.FBits;
        return *this;
    }
    constexpr TSet& operator-=(TSet o) {
        FBits &= ~o.FBits;
        return *this;
    }
    constexpr bool operator==(const TSet&) const = default;

private:
    static constexpr uint64_t Bit(E e) { return uint64_t(1) << static_cast<unsigned>(e); }
    uint64_t FBits = 0;
};

template <class T> struct IsTSet : std::false_type {};
template <class E> struct IsTSet<TSet<E>> : std::true_type {};

class TTypeInfo;

// Base of every event type. Name is the handler's method name on the designed form: the designer and
// form files deal in names, running code in Handler.
class TEventBase {
public:
    std::string Name;
};

// An event (method pointer) property value: a callable plus the handler's name.
template <class Sig> class TEvent;
template <class R, class... A> class TEvent<R(A...)> : public TEventBase {
public:
    using Function = std::function<R(A...)>;
    TEvent() = default;
    TEvent(std::nullptr_t) {}
    template <class F, class = std::enable_if_t<std::is_invocable_r_v<R, F, A...> &&
                                               !std::is_base_of_v<TEventBase, std::decay_t<F>>>>
    TEvent(F&& f) : Handler(std::forward<F>(f)) {}
    template <class T, class M> TEvent(T* object, M method) {
        Handler = [object, method](A... args) -> R { return (object->*method)(args...); };
    }
    explicit operator bool() const { return static_cast<bool>(Handler); }
    bool Assigned() const { return static_cast<bool>(Handler); }
    R operator()(A... args) const {
        if constexpr (std::is_void_v<R>) {
            if (Handler) Handler(args...);
        } else {
            return Handler ? Handler(args...) : R();
        }
    }
    Function Handler;
};

// An event value seen through type information: the handler's name and, type-erased, the handler.
struct TMethod {
    std::string Name;
    std::any Code; // holds the event's std::function, or is empty
    bool Assigned() const { return Code.has_value() || !Name.empty(); }
};

// Declares a named event type with its own type information, e.g.
//   JEX_EVENT_TYPE(TNotifyEvent, void(rtl::TObject* Sender), "Sender: TObject")
// and in one source file JEX_DEFINE_EVENT_TYPE(TNotifyEvent, "Sender: TObject").
#define JEX_EVENT_TYPE(Name, Signature)                                                                  \
    struct Name : public ::rtl::TEvent<Signature> {                                                      \
        using ::rtl::TEvent<Signature>::TEvent;                                                          \
        static const ::rtl::TTypeInfo* TypeInfo();                                                       \
    };

class TObject;
JEX_EVENT_TYPE(TNotifyEvent, void(TObject* Sender))

} // namespace rtl
