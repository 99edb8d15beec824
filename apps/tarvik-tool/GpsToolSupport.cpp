#include "GpsToolSupport.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

std::optional<FixedDeviceClock> commandClock(const QString& nowOption) {
    if (!nowOption.isEmpty()) return FixedDeviceClock::fromIso8601(nowOption);
    const SystemDeviceClock machine;
    return FixedDeviceClock(machine.utcNow(), machine.localOffset());
}

namespace {

constexpr size_t kBlockSize = 1 << 16;

using Digits = std::array<char, 32>;

template <typename T> std::string_view toText(Digits& digits, T value) {
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), static_cast<size_t>(result.ptr - digits.data())};
}

} // namespace

CsvBlockWriter::CsvBlockWriter(ToolContext& ctx) {
    ctx.out.flush(); // what the context printed before comes first
    m_strBuffer.reserve(kBlockSize + 256);
}

CsvBlockWriter::~CsvBlockWriter() {
    flush();
    std::fflush(stdout);
}

void CsvBlockWriter::separate() {
    if (m_bRowStarted) m_strBuffer += ',';
    m_bRowStarted = true;
}

CsvBlockWriter& CsvBlockWriter::text(std::string_view field) {
    separate();
    m_strBuffer += field;
    return *this;
}

CsvBlockWriter& CsvBlockWriter::integer(long long value) {
    Digits digits;
    return text(toText(digits, value));
}

CsvBlockWriter& CsvBlockWriter::number(double value) {
    Digits digits;
    return std::isfinite(value) ? text(toText(digits, value)) : text("null");
}

CsvBlockWriter& CsvBlockWriter::number(float value) {
    Digits digits;
    return std::isfinite(value) ? text(toText(digits, value)) : text("null");
}

CsvBlockWriter& CsvBlockWriter::localTime(int64_t localSeconds, int32_t localOffset) {
    char iso[kIsoLocalTimeSize];
    return text({iso, static_cast<size_t>(formatIsoLocalTime(iso, localSeconds, localOffset))});
}

void CsvBlockWriter::endRow() {
    m_strBuffer += '\n';
    m_bRowStarted = false;
    if (m_strBuffer.size() >= kBlockSize) flush();
}

void CsvBlockWriter::flush() {
    std::fwrite(m_strBuffer.data(), 1, m_strBuffer.size(), stdout);
    m_strBuffer.clear();
}
