#pragma once

#include "shell/ui/CPageView.h"

#include <vector>

class CFendixDoc;
class FittedLabel;
class QLabel;
class NotationRow;

// The position page: the position in every notation at once (degrees and minutes, degrees,
// minutes and seconds, decimal degrees, UTM, MGRS, Mercator metres), then altitude, UTC and local
// time, HDOP and satellites, in two columns on landscape screens. Tapping a row copies its text to
// the clipboard.
class CPositionView : public CPageView {
    Q_OBJECT
public:
    explicit CPositionView(const CFendixDoc& doc, QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;
    // The texts of the rows, in order (what a tap copies).
    QStringList RowTexts() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr int kMinRowHeight = 56; // the name and a value of about 30 px
    void Copied(const QString& name);
    void PlaceRows(int columns);

    const CFendixDoc& m_doc;
    std::vector<NotationRow*> m_rows;
    QWidget* m_pContent;
    QLabel* m_pNote;
    int m_nColumns = 0;
};
