#include "component/bstr.h"

#include <cstring>
#include <limits>

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

struct Conversion {
    const char* rule;
    std::string utf8;
    std::u16string utf16;
    bool isWellFormed = true; ///< else only read, with U+FFFD for every stray byte
};

TEST(Bstr, convertsWellFormedTextBothWaysAndReplacesStrayBytes)
{
    for (const auto& [rule, utf8, utf16, isWellFormed] :
         {Conversion{"empty", "", u""},
          Conversion{"outermost of one byte", {"\0\x7F", 2}, {u"\u0000\u007F", 2}},
          Conversion{"outermost of two bytes", "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
          Conversion{"outermost of three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
          Conversion{"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},
          Conversion{"outermost of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
                     u"\U00010000\U0010FFFF"},
          Conversion{"lone continuation", "a\x80z", u"a\uFFFDz", false},
          Conversion{"cut at the end", "a\xE2\x82", u"a\uFFFD\uFFFD", false},
          Conversion{"cut by another character", "\xE2\x82z", u"\uFFFD\uFFFDz", false},
          Conversion{"overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD", false},
          Conversion{"overlong in three", "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD", false},
          Conversion{"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", false},
          Conversion{"beyond the last", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD", false},
          Conversion{"never a byte", "\xFE\xFF", u"\uFFFD\uFFFD", false}}) {
        EXPECT_EQ(toUtf16(utf8), utf16) << rule;
        if (isWellFormed) {
            EXPECT_EQ(toUtf8(utf16), utf8) << rule;
        }
    }
}

TEST(Bstr, replacesUnpairedSurrogates)
{
    const std::u16string swapped{0xDC00, 0xD800, u'z', 0xDBFF};
    EXPECT_EQ(toUtf8(swapped), "\xEF\xBF\xBD\xEF\xBF\xBDz\xEF\xBF\xBD");
}

TEST(Bstr, hasItsLengthInBytesInFrontAndAZeroBehind)
{
    const Bstr text(std::u16string_view(u"a\0b", 3));
    std::uint32_t length = 0;
    std::memcpy(&length, reinterpret_cast<const char*>(text.get()) - sizeof length, sizeof length);
    EXPECT_EQ(length, 6U);
    EXPECT_EQ(text.get()[3], 0);
    EXPECT_EQ(text.view(), std::u16string_view(u"a\0b", 3));
}

TEST(Bstr, isClearedWhenItIsToBeFilledInAndOfALengthThatFits)
{
    char16_t* const text = TessaviewBstrAlloc(nullptr, 4);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::u16string_view(text, TessaviewBstrLength(text)), std::u16string(4, u'\0'));
    TessaviewBstrFree(text);
    EXPECT_EQ(TessaviewBstrAlloc(nullptr, std::numeric_limits<std::size_t>::max()), nullptr);
    EXPECT_EQ(TessaviewBstrAlloc(nullptr, 0x80000000U), nullptr);
}

TEST(Bstr, takesNullForEmpty)
{
    EXPECT_EQ(bstrToUtf8(nullptr), "");
    EXPECT_EQ(Bstr().utf8(), "");
    TessaviewBstrFree(nullptr);
}

TEST(Bstr, releasesWhatItHeldWhenItIsFilledAnew)
{
    Bstr text("old");
    *text.put() = TessaviewBstrAlloc(u"new", 3);
    Bstr moved = std::move(text);
    EXPECT_EQ(moved.utf8(), "new"); // the leak check sees the rest
}

} // namespace
