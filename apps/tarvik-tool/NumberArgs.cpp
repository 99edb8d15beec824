#include "NumberArgs.h"

#include <cmath>

std::optional<QList<double>> parseNumberArgs(const QStringList& texts, QString& badText) {
    QList<double> values;
    for (const QString& text : texts) {
        bool ok = false;
        const double value = text.toDouble(&ok);
        if (!ok || !std::isfinite(value)) {
            badText = text;
            return std::nullopt;
        }
        values << value;
    }
    return values;
}
