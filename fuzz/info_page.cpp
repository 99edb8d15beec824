// Any bytes as a page file: its name, background and element list, every element read in three
// states, the states it can switch to, and its rectangle resolved on a small and a large screen.
#include "integrations/infopage/InfoPageFile.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    InfoPageFile page;
    page.LoadFromBytes(bytes, QStringLiteral("/nonexistent/pages"));
    if (page.ElementNames().size() > InfoPageFile::kMaxElements) __builtin_trap();
    for (const QString& name : page.ElementNames())
        for (int state = 0; state < 3; ++state) {
            page.HasState(name, state);
            const auto spec = page.ReadElement(name, state);
            if (!spec) continue;
            if (spec->texts.isEmpty()) __builtin_trap(); // "Text" is there, empty by default
            resolveElementRect(spec->pos, 240, 320);
            resolveElementRect(spec->pos, 800, 480);
        }
    return 0;
}
