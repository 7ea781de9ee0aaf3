#include "si/time.h"

namespace lib13818 {

namespace {

BitReader over(const uint8_t* coded, std::size_t count)
{
    return BitReader({coded, count});
}

} // namespace

DateTime::DateTime(const uint8_t* coded)
{
    BitReader in = over(coded, 5);
    *this = DateTime(in);
}

DateTime::DateTime(BitReader& in)
{
    // The formulas of EN 300 468 Annex C, whose int() truncates toward zero.
    const int mjd = in.u16();
    const int years = static_cast<int>((mjd - 15078.2) / 365.25);
    const int yearDays = static_cast<int>(years * 365.25);
    const int months = static_cast<int>((mjd - 14956.1 - yearDays) / 30.6001);
    const int nextYear = months == 14 || months == 15 ? 1 : 0;
    day = mjd - 14956 - yearDays - static_cast<int>(months * 30.6001);
    month = months - 1 - 12 * nextYear;
    year = years + nextYear + 1900;
    hour = fromBcd(in.u8());
    minute = fromBcd(in.u8());
    second = fromBcd(in.u8());
}

Duration::Duration(const uint8_t* coded)
{
    BitReader in = over(coded, 3);
    *this = Duration(in);
}

Duration::Duration(BitReader& in)
    : hours(fromBcd(in.u8()))
    , minutes(fromBcd(in.u8()))
    , seconds(fromBcd(in.u8()))
{
}

HourMinute::HourMinute(const uint8_t* coded)
{
    BitReader in = over(coded, 2);
    *this = HourMinute(in);
}

HourMinute::HourMinute(BitReader& in) : hours(fromBcd(in.u8())), minutes(fromBcd(in.u8())) {}

std::ostream& operator<<(std::ostream& out, const DateTime& time)
{
    return out << std::dec << time.day << '/' << time.month << '-' << time.year << ' ' << time.hour
               << ':' << time.minute << ':' << time.second;
}

std::ostream& operator<<(std::ostream& out, const Duration& time)
{
    return out << std::dec << time.hours << ':' << time.minutes << ':' << time.seconds;
}

std::ostream& operator<<(std::ostream& out, const HourMinute& time)
{
    return out << std::dec << time.hours << ':' << time.minutes;
}

} // namespace lib13818
