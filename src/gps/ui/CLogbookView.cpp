#include "gps/ui/CLogbookView.h"

#include "gps/CFendixDoc.h"
#include "gps/RecordingSettings.h"
#include "gps/logbook/TrackExport.h"
#include "gps/sources/SourceSettings.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTableWidget>
#include <algorithm>

namespace {

QString kmText(double km) {
    return QString::asprintf("%.1f", km);
}

bool saveBytes(QWidget* parent, const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return true;
    QMessageBox::warning(
        parent, QStringLiteral("Fahrtenbuch"),
        QStringLiteral("%1 kann nicht geschrieben werden: %2").arg(path, file.errorString()));
    return false;
}

} // namespace

CLogbookView::CLogbookView(const CFendixDoc& doc, std::function<void(const QString&)> openInDiagrams,
                           QWidget* parent)
    : CPageView(parent), m_doc(doc), m_openInDiagrams(std::move(openInDiagrams)) {
    m_pTable = new QTableWidget(0, 4, this);
    m_pTable->setHorizontalHeaderLabels({QStringLiteral("Start"), QStringLiteral("km"),
                                         QStringLiteral("Dauer"), QStringLiteral("Kommentar")});
    m_pTable->verticalHeader()->hide();
    m_pTable->verticalHeader()->setDefaultSectionSize(44); // a finger's row
    m_pTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pTable->horizontalHeader()->setStretchLastSection(true);
    m_pTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* comment = new QPushButton(QStringLiteral("Kommentar"), this);
    auto* diagrams = new QPushButton(QStringLiteral("Diagramme"), this);
    auto* exportButton = new QPushButton(QStringLiteral("Export"), this);
    m_buttons = {comment, diagrams, exportButton};
    for (QPushButton* button : m_buttons)
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pButtons = new QGridLayout;
    m_pButtons->setSpacing(2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_pTable, 1);
    layout->addLayout(m_pButtons);
    PlaceButtons(false);
    connect(comment, &QPushButton::clicked, this, &CLogbookView::EditComment);
    connect(m_pTable, &QTableWidget::cellDoubleClicked, this, &CLogbookView::EditComment);
    connect(diagrams, &QPushButton::clicked, this, [this] {
        if (const LogbookEntry* entry = Selected(); entry && m_openInDiagrams)
            m_openInDiagrams(entry->m_strPath);
    });
    connect(exportButton, &QPushButton::clicked, this, &CLogbookView::Export);
}

void CLogbookView::PlaceButtons(bool bNarrow) {
    // Three words side by side need about 300 px; a handheld takes them in two rows.
    for (QPushButton* button : m_buttons)
        m_pButtons->removeWidget(button);
    m_pButtons->addWidget(m_buttons[0], 0, 0);
    m_pButtons->addWidget(m_buttons[1], 0, 1);
    if (bNarrow)
        m_pButtons->addWidget(m_buttons[2], 1, 0, 1, 2);
    else
        m_pButtons->addWidget(m_buttons[2], 0, 2);
}

void CLogbookView::resizeEvent(QResizeEvent* event) {
    PlaceButtons(width() < 300);
    // Larger type where the four columns have the room; a handheld keeps the style's size.
    QFont font = m_pTable->font();
    font.setPixelSize(width() < 400 ? QFontInfo(QWidget::font()).pixelSize() : 18);
    m_pTable->setFont(font);
    CPageView::resizeEvent(event);
}

void CLogbookView::showEvent(QShowEvent* event) {
    Reload();
    CPageView::showEvent(event);
}

void CLogbookView::Reload() {
    CRegistryKey key;
    const QString folder = DeviceRoot::current().hostPath(readSetting(key, RecordingSettings::kLogDirectory));
    m_strListedLog = m_doc.Log().path();
    m_entries = Logbook::list(folder, DeviceRoot::current(), true, m_strListedLog);
    std::ranges::reverse(m_entries);
    m_pTable->setRowCount(int(m_entries.size()));
    OnUpdate(0);
}

void CLogbookView::OnUpdate(uint16_t) {
    // A run that starts while the page is shown brings its new log file.
    if (isVisible() && m_doc.Log().path() != m_strListedLog) {
        Reload();
        return;
    }
    const QFileInfo recording(m_doc.Log().path());
    for (size_t i = 0; i < m_entries.size(); ++i) {
        const LogbookEntry& entry = m_entries[i];
        LogbookFields fields = entry.m_fields;
        // The trip being recorded shows the document's own figures, which grow with it.
        const bool bRunning = !m_doc.Log().path().isEmpty() && QFileInfo(entry.m_strPath) == recording;
        if (bRunning) {
            fields.m_dKm = m_doc.Statistics().m_dRunDistance;
            fields.m_nSeconds = m_doc.Statistics().m_nRunTime;
        }
        const QString start = entry.m_start.isValid()
                                  ? entry.m_start.toString(QStringLiteral("dd.MM.yy HH:mm"))
                                  : QFileInfo(entry.m_strFileName).completeBaseName();
        const QString texts[] = {
            start, kmText(fields.m_dKm),
            QString::asprintf("%d:%02d", fields.m_nSeconds / 3600, fields.m_nSeconds / 60 % 60),
            bRunning ? QStringLiteral("(läuft)") : fields.m_strComment};
        for (int column = 0; column < 4; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            if (column == 1 || column == 2) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (!entry.m_strProblem.isEmpty() && !bRunning) item->setToolTip(entry.m_strProblem);
            m_pTable->setItem(int(i), column, item);
        }
    }
}

const LogbookEntry* CLogbookView::Selected() const {
    const int row = m_pTable->currentRow();
    return row >= 0 && row < int(m_entries.size()) ? &m_entries[size_t(row)] : nullptr;
}

void CLogbookView::EditComment() {
    const LogbookEntry* entry = Selected();
    if (!entry) return;
    bool bOk = false;
    const QString comment = QInputDialog::getText(this, QStringLiteral("Kommentar"), entry->m_strFileName,
                                                  QLineEdit::Normal, entry->m_fields.m_strComment, &bOk);
    if (!bOk) return;
    QString problem;
    if (!Logbook::writeComment(entry->m_strPath, comment, DeviceRoot::current(), problem))
        QMessageBox::warning(this, QStringLiteral("Kommentar"), problem);
    Reload();
}

void CLogbookView::Export() {
    QMenu menu(this);
    QAction* logbookCsv = menu.addAction(QStringLiteral("Fahrtenbuch als CSV"));
    const LogbookEntry* entry = Selected();
    std::vector<std::pair<QAction*, TrackExport::Format>> trips;
    if (entry)
        for (TrackExport::Format format :
             {TrackExport::Format::Gpx, TrackExport::Format::Kml, TrackExport::Format::Csv})
            trips.emplace_back(
                menu.addAction(QStringLiteral("Fahrt als %1")
                                   .arg(QString::fromLatin1(TrackExport::suffix(format)).toUpper())),
                format);
    QAction* chosen = menu.exec(QCursor::pos());
    if (!chosen) return;
    if (chosen == logbookCsv) {
        const QString path = QFileDialog::getSaveFileName(
            this, chosen->text(), QStringLiteral("Fahrtenbuch.csv"), QStringLiteral("CSV (*.csv)"));
        std::vector<LogbookEntry> byName(m_entries.rbegin(), m_entries.rend());
        if (!path.isEmpty()) saveBytes(this, path, Logbook::csv(byName));
        return;
    }
    const auto trip = std::ranges::find(trips, chosen, &std::pair<QAction*, TrackExport::Format>::first);
    if (trip == trips.end()) return;
    const QString suffix = QString::fromLatin1(TrackExport::suffix(trip->second));
    const QString path = QFileDialog::getSaveFileName(
        this, chosen->text(), QFileInfo(entry->m_strFileName).completeBaseName() + '.' + suffix,
        QStringLiteral("%1 (*.%2)").arg(suffix.toUpper(), suffix));
    if (path.isEmpty()) return;
    CRegistryKey key;
    const std::optional<QByteArray> bytes = TrackExport::exportLog(
        entry->m_strPath, trip->second, readSetting(key, SourceSettings::kAcceptAllTalkers));
    if (!bytes) {
        QMessageBox::warning(this, QStringLiteral("Fahrtenbuch"),
                             QStringLiteral("%1 kann nicht gelesen werden.").arg(entry->m_strPath));
        return;
    }
    saveBytes(this, path, *bytes);
}
