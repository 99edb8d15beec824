#pragma once

#include "integrations/infopage/InfoPageFile.h"
#include "integrations/template/TemplateSources.h"

#include <QImage>

// A page file drawn without a window, every element in its first state, as the page shows it: for
// the page designer's loop (render, look, edit) and for comparing pages with stored pictures.
// Needs a QGuiApplication (fonts); any platform, "offscreen" too.
QImage renderInfoPage(const InfoPageFile& file, const QSize& size, const TemplateSources& sources);
