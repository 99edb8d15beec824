#include "GpsToolSupport.h"

#include "gps/LogDecoder.h"
#include "gps/sources/SourceSettings.h"
#include "settings/CRegistryKey.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

QString nowProblem(const ToolOptions& options) {
    return "--now needs an ISO 8601 time such as 2026-05-22T12:00:00, not '" + options.value("--now") + "'";
}

std::optional<bool> acceptAllTalkers(const ToolOptions& options, QString& problem) {
    CRegistryKey key;
    bool accept = readSetting(key, SourceSettings::kAcceptAllTalkers);
    for (const QString& assignment : options.values("--set")) {
        const QString name = assignment.section('=', 0, 0);
        const QString value = assignment.section('=', 1);
        if (name.compare(SourceSettings::kAcceptAllTalkers.name(), Qt::CaseInsensitive) != 0 ||
            (value != "0" && value != "1")) {
            problem = "--set takes AcceptAllTalkers=0 or AcceptAllTalkers=1 here, not '" + assignment + "'";
            return std::nullopt;
        }
        accept = value == "1";
    }
    return accept;
}

RecordedLog::RecordedLog(const QString& path) : m_file(path) {
    if (!m_file.open(QIODevice::ReadOnly)) return;
    m_bOk = true;
    const uchar* mapped = m_file.size() > 0 ? m_file.map(0, m_file.size()) : nullptr;
    if (!mapped) m_copy = m_file.readAll();
    m_view = mapped ? QByteArrayView(mapped, m_file.size()) : QByteArrayView(m_copy);
    if (LogDecoder::startsWithByteOrderMark(m_view)) {
        m_copy = m_view.toByteArray();
        m_copy.truncate(
            static_cast<qsizetype>(LogDecoder().decode(m_copy.data(), static_cast<size_t>(m_copy.size()))));
        m_view = m_copy;
    }
}

std::optional<FixedDeviceClock> commandClock(const QString& nowOption) {
    if (!nowOption.isEmpty()) return FixedDeviceClock::fromIso8601(nowOption);
    const SystemDeviceClock machine;
    return FixedDeviceClock(machine.utcNow(), machine.localOffset());
}

namespace {

constexpr size_t kBlockSize = 1 << 16;
constexpr size_t kNumberSize = 32;

// Most single-precision values of a log are short decimals (545.4, 0.9, 18.51998). Below 8192 a
// float's neighbours lie less than 0.001 apart, so the decimal with the fewest places (up to three)
// that reads back to the same float is exactly the shortest form; it is written from its digits,
// and everything else goes the general way.
char* writeFloat(char* at, float value) {
    const float magnitude = std::fabs(value);
    if (magnitude >= 0.001f && magnitude < 8192.0f) {
        long long scale = 1;
        for (int decimals = 0; decimals <= 3; ++decimals, scale *= 10) {
            const auto digits =
                static_cast<long long>(std::nearbyint(static_cast<double>(magnitude) * scale));
            if (static_cast<float>(static_cast<double>(digits) / static_cast<double>(scale)) != magnitude)
                continue;
            if (value < 0) *at++ = '-';
            at = std::to_chars(at, at + kNumberSize, digits / scale).ptr;
            if (decimals == 0) return at;
            *at++ = '.';
            for (long long fraction = digits % scale, place = scale / 10; place > 0; place /= 10)
                *at++ = static_cast<char>('0' + fraction / place % 10);
            return at;
        }
    }
    return std::to_chars(at, at + kNumberSize, value).ptr;
}

} // namespace

CsvBlockWriter::CsvBlockWriter(ToolContext& ctx) : m_buffer(kBlockSize + kNumberSize) {
    ctx.out.flush(); // what the context printed before comes first
}

CsvBlockWriter::~CsvBlockWriter() {
    flush();
    std::fflush(stdout);
}

char* CsvBlockWriter::startField(size_t length) {
    if (m_nUsed + length + 1 > m_buffer.size()) flush();
    if (length + 1 > m_buffer.size()) m_buffer.resize(length + 1);
    if (m_bRowStarted) m_buffer[m_nUsed++] = ',';
    m_bRowStarted = true;
    return m_buffer.data() + m_nUsed;
}

CsvBlockWriter& CsvBlockWriter::text(std::string_view field) {
    std::memcpy(startField(field.size()), field.data(), field.size());
    m_nUsed += field.size();
    return *this;
}

CsvBlockWriter& CsvBlockWriter::integer(long long value) {
    char* at = startField(kNumberSize);
    m_nUsed = static_cast<size_t>(std::to_chars(at, at + kNumberSize, value).ptr - m_buffer.data());
    return *this;
}

CsvBlockWriter& CsvBlockWriter::number(double value) {
    if (!std::isfinite(value)) return text("null");
    char* at = startField(kNumberSize);
    m_nUsed = static_cast<size_t>(std::to_chars(at, at + kNumberSize, value).ptr - m_buffer.data());
    return *this;
}

CsvBlockWriter& CsvBlockWriter::number(float value) {
    if (!std::isfinite(value)) return text("null");
    m_nUsed = static_cast<size_t>(writeFloat(startField(kNumberSize), value) - m_buffer.data());
    return *this;
}

CsvBlockWriter& CsvBlockWriter::localTime(int64_t localSeconds, int32_t localOffset) {
    char* at = startField(kIsoLocalTimeSize);
    m_nUsed += static_cast<size_t>(formatIsoLocalTime(at, localSeconds, localOffset));
    return *this;
}

void CsvBlockWriter::endRow() {
    if (m_nUsed + 1 > m_buffer.size()) flush();
    m_buffer[m_nUsed++] = '\n';
    m_bRowStarted = false;
    if (m_nUsed >= kBlockSize) flush();
}

void CsvBlockWriter::flush() {
    std::fwrite(m_buffer.data(), 1, m_nUsed, stdout);
    m_nUsed = 0;
}
