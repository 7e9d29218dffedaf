// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include <unistd.h>

namespace fxhost {

//! Closes a descriptor of the system when the object is destroyed.
class Descriptor
{
public:
    //! \param number the descriptor, which this object then owns; negative for none
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }

    Descriptor &operator=(Descriptor &&) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

private:
    int m_number;
};

} // namespace fxhost
