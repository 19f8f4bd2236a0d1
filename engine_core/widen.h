/// The innermost loop of reading: plain characters of a line become wide ones.
#pragma once

#include <bit>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Plain characters are themselves in a line: ASCII but for NUL and the two line ends.
inline bool IsPlain(unsigned char byte)
{
    return byte < 0x80 && byte != 0 && byte != '\n' && byte != '\r';
}

/// Copies plain characters from `from` to `to`, up to `count` or the first that is not plain, and
/// returns how many. `to` has room for `count`; what stands behind the result may be overwritten.
inline std::size_t WidenPlain(const unsigned char* from, std::size_t count, wchar_t* to)
{
    std::size_t done = 0;
#if defined(__SSE2__)
    // Sixteen at a time: a signed comparison with 1 finds NUL and everything beyond ASCII at once.
    const __m128i zero = _mm_setzero_si128();
    const __m128i one = _mm_set1_epi8(1);
    const __m128i linefeed = _mm_set1_epi8('\n');
    const __m128i carriagereturn = _mm_set1_epi8('\r');
    for (; done + 16 <= count; done += 16)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + done));
        const __m128i special =
            _mm_or_si128(_mm_cmplt_epi8(bytes, one),
                         _mm_or_si128(_mm_cmpeq_epi8(bytes, linefeed), _mm_cmpeq_epi8(bytes, carriagereturn)));
        const __m128i low = _mm_unpacklo_epi8(bytes, zero);
        const __m128i high = _mm_unpackhi_epi8(bytes, zero);
        auto* const wide = reinterpret_cast<__m128i*>(to + done);
        if constexpr (sizeof(wchar_t) == 2)
        {
            _mm_storeu_si128(wide, low);
            _mm_storeu_si128(wide + 1, high);
        }
        else
        {
            _mm_storeu_si128(wide, _mm_unpacklo_epi16(low, zero));
            _mm_storeu_si128(wide + 1, _mm_unpackhi_epi16(low, zero));
            _mm_storeu_si128(wide + 2, _mm_unpacklo_epi16(high, zero));
            _mm_storeu_si128(wide + 3, _mm_unpackhi_epi16(high, zero));
        }
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(special));
        if (mask != 0)
            return done + static_cast<std::size_t>(std::countr_zero(mask));
    }
#endif
    for (; done < count && IsPlain(from[done]); ++done)
        to[done] = static_cast<wchar_t>(from[done]);
    return done;
}
