#pragma once

#include <QWidget>
#include <cstdint>

// A full-window page of the main frame. The frame calls OnUpdate after the document announced a
// change; `hint` is the OR of the GpsChange codes of that change.
class CPageView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    virtual void OnUpdate(uint16_t hint) = 0;
    // Every received sentence while the page is shown (nullptr: the source restarts); pages that
    // show the raw data take it.
    virtual void OnRawSentence(const char* /*pLine*/, int /*nLength*/) {}
};
