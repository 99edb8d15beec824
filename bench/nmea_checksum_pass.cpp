// The floor for reading a log: one pass that only finds each line and tests its checksum, with
// nothing interpreted. Prints the number of lines whose checksum holds.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

bool checksumHolds(const char* line, const char* end) {
    if (line == end || *line != '$') return false;
    unsigned sum = 0;
    for (const char* c = line + 1; c < end; ++c) {
        if (*c == '*') {
            unsigned stated = 0;
            const auto result = std::from_chars(c + 1, end, stated, 16);
            return result.ec == std::errc() && stated == sum;
        }
        sum ^= static_cast<unsigned char>(*c);
    }
    return false;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: nmea_checksum_pass LOG\n");
        return 2;
    }
    std::FILE* file = std::fopen(argv[1], "rb");
    if (!file) {
        std::fprintf(stderr, "nmea_checksum_pass: cannot read %s\n", argv[1]);
        return 1;
    }
    std::vector<char> buffer(1 << 20);
    size_t kept = 0, good = 0;
    for (;;) {
        const size_t got = std::fread(buffer.data() + kept, 1, buffer.size() - kept, file);
        const char* const end = buffer.data() + kept + got;
        const char* line = buffer.data();
        while (const char* newline = static_cast<const char*>(std::memchr(line, '\n', end - line))) {
            good += checksumHolds(line, newline);
            line = newline + 1;
        }
        kept = static_cast<size_t>(end - line);
        std::memmove(buffer.data(), line, kept);
        if (got == 0) break;
    }
    std::fclose(file);
    std::printf("%zu\n", good);
    return 0;
}
