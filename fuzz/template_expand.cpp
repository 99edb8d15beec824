// Any bytes (UTF-8) as a template, expanded with every source present: a document at its start
// values, a GoTo target, the navigation program's destination with text data, TMC and battery.
#include "gps/CFendixDoc.h"
#include "integrations/NavigationTarget.h"
#include "integrations/TmcStatus.h"
#include "integrations/template/ExpandTemplate.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FixedDeviceClock clock(1779451200, 7200);
    static CFendixDoc doc(DeviceRoot(QStringLiteral("/nonexistent/fuzz-root")), clock);
    static CGoToTarget goTo;
    static NavigationTarget nav{true, 11.5, 47.0, "Ziel", "Weg 1", "Ort", {{"a", "b"}, {"c"}}};
    static TmcStatus tmc{3, "Sender"};
    if (goTo.Name().isEmpty()) goTo.SetTarget(11.0, 48.0, QStringLiteral("GoTo"));
    doc.Fix().m_dPosLong = 11.2;
    doc.Fix().m_dPosLat = 48.1;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const TemplateSources sources{&doc, &goTo, &nav, &tmc, 50, clock.localNow()};
    const QString expanded = ExpandTemplate(text, sources);
    // No variable is longer than a few dozen characters: the text grows by a bounded factor at most.
    if (expanded.size() > text.size() * 40 + 64) __builtin_trap();
    return 0;
}
