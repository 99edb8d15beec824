#pragma once

#include "integrations/template/TemplateSources.h"

#include <QString>

// The template language of the user pages, the navigation program's overlay and the live position
// address: "%Name%" stands for a live value, "%Speed*1.609%" multiplies it first, "%Long:2%" picks
// a position notation. A "%" that starts no known name stays as it is. Values that are not known
// (no target, no GoTo page, no TMC, no battery) leave their place empty.
QString ExpandTemplate(const QString& text, const TemplateSources& sources);

// A number of seconds as the templates show durations: "1d2:03:04" (days only when there are any),
// "1:02:05" below a day.
QString DurationText(int64_t seconds);
