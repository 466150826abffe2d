// Field lists that must not compile, one for each definition that is made from the command line, and one that must.
#include "vkrecords/fields.h"

struct Odd {
    char szName[3];
    int nNumber;
    unsigned char byReserved[8];
};

namespace vkrecords {

#define VK_FIELD(place, member, meaning) \
    detail::MakeField<decltype(Record::member), offsetof(Record, member), place>(#member, meaning)
#define VK_RESERVED(place, member) \
    detail::MakeReserved<decltype(Record::member), offsetof(Record, member), place>(#member)

template <>
struct FieldsOf<Odd> {
    using Record = Odd;
    static constexpr const char* name = "Odd";
    static constexpr Field list[] = {
#ifndef FIRST_FIELD_FORGOTTEN
        VK_FIELD(0, szName, "a name"),
#endif
#if defined(OFFSET_WRONG)
        VK_FIELD(8, nNumber, "a number"),
#elif !defined(FIELD_FORGOTTEN)
        VK_FIELD(4, nNumber, "a number"),
#endif
#ifdef RESERVED_OFFSET_WRONG
        VK_RESERVED(4, byReserved),
#elif !defined(RESERVED_FORGOTTEN)
        VK_RESERVED(8, byReserved),
#endif
#ifdef FIELD_TWICE
        VK_RESERVED(8, byReserved),
#endif
    };
};

template struct LayoutList<Odd>;

}  // namespace vkrecords
