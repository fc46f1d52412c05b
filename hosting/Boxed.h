#pragma once

#include <memory>
#include <utility>

namespace vantel {

/// One value on the heap that copies and compares like the value itself, so that a type can hold one of its
/// own kind. Never empty, except after being moved from.
template <typename Value>
class Boxed {
public:
    Boxed(Value value)
        : m_value(std::make_unique<Value>(std::move(value))) {}
    Boxed(const Boxed& other)
        : m_value(std::make_unique<Value>(*other)) {}
    Boxed(Boxed&&) noexcept = default;
    Boxed& operator=(const Boxed& other) {
        *this = Boxed(other);
        return *this;
    }
    Boxed& operator=(Boxed&&) noexcept = default;
    ~Boxed() = default;

    const Value& operator*() const { return *m_value; }
    const Value* operator->() const { return m_value.get(); }
    Value& operator*() { return *m_value; }
    Value* operator->() { return m_value.get(); }

    bool operator==(const Boxed& other) const { return **this == *other; }

private:
    std::unique_ptr<Value> m_value;
};

} // namespace vantel
