#pragma once

#include <QList>
#include <QStringList>
#include <optional>

// The arguments as finite decimal numbers ("." as decimal mark whatever the locale); nothing when one of
// them is not such a number, whose text is then put into `badText`.
std::optional<QList<double>> parseNumberArgs(const QStringList& texts, QString& badText);
