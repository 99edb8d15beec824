#pragma once

#include "shell/ui/CPageView.h"

#include <vector>

class CFendixDoc;
class FittedLabel;
class QLabel;
class NotationRow;

// The position page: the position in every notation at once (degrees and minutes, degrees,
// minutes and seconds, decimal degrees, UTM, MGRS, Mercator metres), then altitude, UTC and local
// time, HDOP and satellites. Tapping a row copies its text to the clipboard.
class CPositionView : public CPageView {
    Q_OBJECT
public:
    explicit CPositionView(const CFendixDoc& doc, QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;
    // The texts of the rows, in order (what a tap copies).
    QStringList RowTexts() const;

private:
    void Copied(const QString& name);

    const CFendixDoc& m_doc;
    std::vector<NotationRow*> m_rows;
    QLabel* m_pNote;
};
