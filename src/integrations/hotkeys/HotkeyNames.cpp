#include "integrations/hotkeys/HotkeyNames.h"

namespace HotkeyNames {

namespace {
const QString kStem = QStringLiteral("Taste");
}

QString shortPress(int button) {
    return QStringLiteral("%1 %2").arg(kStem).arg(button);
}

QString multiPress(int count, int button) {
    return QStringLiteral("%1*%2 %3").arg(count).arg(kStem).arg(button);
}

QString longPress(int button) {
    return QStringLiteral("Lang %1 %2").arg(kStem).arg(button);
}

QString chord(int pendingButton, int button) {
    return QStringLiteral("%1 %2, %3").arg(kStem).arg(pendingButton).arg(button);
}

QStringList fixedActions() {
    return {QString::fromUtf8(kNoAction),
            QStringLiteral("<MN Zoom in>"),
            QStringLiteral("<MN Zoom out>"),
            QStringLiteral("<MN Nachtansicht>"),
            QStringLiteral("<MN Neue Ansage>"),
            QStringLiteral("<MN Karte Norden>"),
            QStringLiteral("<MN Ganze Strecke>"),
            QStringLiteral("<MN Nächstes Ziel>"),
            QStringLiteral("<MN TMC Sendersuchlauf>"),
            QStringLiteral("<MN Neustart>"),
            QStringLiteral("<MN in Vordergrund>"),
            QStringLiteral("<Ansichten wechseln>"),
            QStringLiteral("<Heller>"),
            QStringLiteral("<Dunkler>"),
            QStringLiteral("<Lauter>"),
            QStringLiteral("<Leiser>"),
            QStringLiteral("<Sound an/aus>"),
            QStringLiteral("<Reboot>"),
            QStringLiteral("<Tarvik schließen>"),
            QStringLiteral("<MN und Tarvik schließen>"),
            QStringLiteral("<Screenshot>"),
            QStringLiteral("<Speicher Aktuelle Pos>"),
            QStringLiteral("<Reset Trag>"),
            QStringLiteral("<Reset Maximalwerte>"),
            QStringLiteral("<Reset Tour>")};
}

QString pageAction(const QString& pageName) {
    return QStringLiteral("<%1>").arg(pageName);
}

QString pageOf(const QString& action) {
    if (action.size() < 3 || !action.startsWith('<') || !action.endsWith('>')) return {};
    return action.mid(1, action.size() - 2);
}

} // namespace HotkeyNames
