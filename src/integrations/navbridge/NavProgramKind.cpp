#include "integrations/navbridge/NavProgramKind.h"

namespace NavProgramKind {

namespace {
constexpr int kTitleLength = 32;
}

std::optional<int> fromWindow(const QString& title, const QString& className,
                              const MajorVersion& majorVersion) {
    const QString upper = title.left(kTitleLength).toUpper();
    const auto has = [&upper](const char* word) { return upper.contains(QLatin1String(word)); };
    if (has("TOMTOM NAVIGATOR"))
        return className.startsWith(QLatin1String("MunichWinClass")) ? kTomTomSdk : kTomTom;
    if (has("FALK NAVIGATOR") || has("MARCO POLO")) return kFalkMarcoPolo;
    if (has("MOBNAV") || has("NAVIGATOR") || has("ENGIN")) {
        // Tarvik's own GPS pages and tools such as "GPS Navigator" are no navigation program.
        if (upper.startsWith(QLatin1String("GPS"))) return std::nullopt;
        if (className.startsWith(QLatin1String("Pwc80"))) return kMNPwc80;
        return majorVersion() < 5 ? kMNBefore5 : kMN5;
    }
    if (has("NAVIT")) return kNavit;
    return std::nullopt;
}

int fromPath(const QString& path, const MajorVersion& majorVersion) {
    if (path.isEmpty()) return kSystemDefault;
    const QString lower = path.toLower();
    if (lower.contains(QLatin1String("falk")) || lower.contains(QLatin1String("marco")))
        return kFalkMarcoPolo;
    if (lower.contains(QLatin1String("tomtom"))) return kTomTomSdk;
    if (lower.contains(QLatin1String("navit"))) return kNavit;
    if (lower.contains(QLatin1Char('5'))) return kMN5;
    return majorVersion() >= 5 ? kMN5 : kMNBefore5;
}

std::optional<int> fromName(const QString& name) {
    static const char* const kNames[] = {"",   "falk", "tomtom", "tomtom-sdk", "mn-pwc80",
                                         "mn", "mn5",  "navit",  "system"};
    for (int kind = kFalkMarcoPolo; kind <= kLast; ++kind)
        if (name == QLatin1String(kNames[kind])) return kind;
    bool ok = false;
    const int number = name.toInt(&ok);
    if (ok && number >= kFalkMarcoPolo && number <= kLast) return number;
    return std::nullopt;
}

} // namespace NavProgramKind
