#pragma once

// What a pointer to a field of a described record tells: its record, its type, its name.

#include "TaxCore/base/Record.h"

#include <boost/mp11/algorithm.hpp>

#include <string_view>
#include <type_traits>

namespace taxcore {

template <class T>
struct MemberOf;
template <class Record_, class Type_>
struct MemberOf<Type_ Record_::*> {
    using Record = Record_;
    using Type = Type_;
};

/// The name of a field as its record describes it; empty for a pointer to no described field.
template <class Record, class Type>
std::string_view nameOf(Type Record::*member) {
    std::string_view name;
    boost::mp11::mp_for_each<Fields<Record>>([&](auto field) {
        if constexpr (std::is_same_v<std::remove_const_t<decltype(field.pointer)>,
                                     Type Record::*>) {
            if (field.pointer == member) {
                name = field.name;
            }
        }
    });
    return name;
}

} // namespace taxcore
