#pragma once

#include "gps/logbook/Logbook.h"
#include "shell/ui/CPageView.h"

#include <array>
#include <functional>

class CFendixDoc;
class QGridLayout;
class QPushButton;
class QTableWidget;

// The logbook of trips "Fahrtenbuch": one row per log file, newest first, with start, distance,
// duration and comment; the trip being recorded on top with its live figures. Buttons below: edit
// the comment, open the trip on the diagrams page, export the logbook as CSV or the trip as KML,
// CSV or GPX. Figures still missing are measured and written into the logs when the page is shown.
class CLogbookView : public CPageView {
    Q_OBJECT
public:
    CLogbookView(const CFendixDoc& doc, std::function<void(const QString& path)> openInDiagrams,
                 QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;
    // Reads the log folder again (measuring and filling what is missing).
    void Reload();
    const std::vector<LogbookEntry>& Entries() const { return m_entries; }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void EditComment();
    void Export();
    const LogbookEntry* Selected() const;
    void PlaceButtons(bool bNarrow);

    const CFendixDoc& m_doc;
    std::function<void(const QString&)> m_openInDiagrams;
    QTableWidget* m_pTable;
    std::array<QPushButton*, 3> m_buttons{}; // comment, diagrams, export
    QGridLayout* m_pButtons;
    std::vector<LogbookEntry> m_entries; // newest first
    QString m_strListedLog;              // the log being recorded when the list was read
};
