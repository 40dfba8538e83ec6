// The parts of fmt that this program's logic calls, inside the program: what is loaded at its start takes longer than
// what it does.
#include <fmt/format-inl.h>

FMT_BEGIN_NAMESPACE
namespace detail {
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double value) noexcept;
template dragonbox::decimal_fp<float> dragonbox::to_decimal(float value) noexcept;
template void buffer<char>::append(const char* begin, const char* end);
template void vformat_to(buffer<char>& to, string_view format, basic_format_args<FMT_BUFFER_CONTEXT(char)> arguments,
                         locale_ref locale);
template thousands_sep_result<char> thousands_sep_impl(locale_ref locale);
template char decimal_point_impl(locale_ref locale);
template locale_ref::locale_ref(const std::locale& locale);
template std::locale locale_ref::get<std::locale>() const;
} // namespace detail
FMT_END_NAMESPACE
