#include "nav/ui/CModuleTrack.h"

#include "nav/goto/GoToTarget.h"
#include "nav/track/Measurement.h"
#include "nav/track/TrackSettings.h"
#include "settings/CRegistryKey.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace {
const char* const kOpenFilter = "Track (*.tk);;Log (*.txt);;GPX (*.gpx);;Alle (*)";
const char* const kSaveFilter = "Track (*.tk);;GPX (*.gpx)";
} // namespace

CModuleTrack::CModuleTrack(const CGoToTarget& target, LogPositionReader readLog, ChooseFile chooseFile,
                           QWidget* parent)
    : CPageView(parent), m_target(target), m_readLog(std::move(readLog)),
      m_chooseFile(std::move(chooseFile)) {
    if (!m_chooseFile)
        m_chooseFile = [this](const QString& title, const QString& start, const QString& filter, bool bSave) {
            return bSave ? QFileDialog::getSaveFileName(this, title, start, filter)
                         : QFileDialog::getOpenFileName(this, title, start, filter);
        };
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* top = new QHBoxLayout;
    m_pPath = new QLabel(this);
    m_pPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* menuButton = new QToolButton(this);
    menuButton->setText(QStringLiteral("Menü"));
    menuButton->setPopupMode(QToolButton::InstantPopup);
    m_pMenu = new QMenu(this);
    menuButton->setMenu(m_pMenu);
    top->addWidget(m_pPath, 1);
    top->addWidget(menuButton);
    layout->addLayout(top);

    m_pList = new QTreeWidget(this);
    m_pList->setRootIsDecorated(false);
    m_pList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pList->setHeaderLabels(
        {QStringLiteral("#"), QStringLiteral("Länge"), QStringLiteral("Breite"), QStringLiteral("km")});
    const int widths[] = {30, 60, 60, 60};
    for (int i = 0; i < 4; ++i)
        m_pList->setColumnWidth(i, widths[i] * logicalDpiX() / 96);
    m_pList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_pList, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { m_pMenu->popup(m_pList->viewport()->mapToGlobal(at)); });
    layout->addWidget(m_pList, 1);

    CRegistryKey key;
    auto* numbers = new QCheckBox(QStringLiteral("Punktnummern in der Karte"), this);
    numbers->setChecked(readSetting(key, TrackSettings::kTrackNumbers));
    connect(numbers, &QCheckBox::toggled, this, [](bool on) {
        CRegistryKey k;
        writeSetting(k, TrackSettings::kTrackNumbers, on);
    });
    layout->addWidget(numbers);

    m_pMenu->addAction(QStringLiteral("Öffne Track (*.tk) oder Log (*.txt)"), this,
                       &CModuleTrack::OpenChosen);
    m_pMenu->addAction(QStringLiteral("Track speichern"), this, &CModuleTrack::Save);
    m_pMenu->addAction(QStringLiteral("Track speichern als ..."), this, &CModuleTrack::SaveAs);
    m_pMenu->addSeparator();
    m_pMenu->addAction(QStringLiteral("Lösche markierte Wegpunkte"), this, &CModuleTrack::DeleteSelected);
    m_pMenu->addAction(QStringLiteral("Lösche alle Wegpunkte"), this, &CModuleTrack::DeleteAll);
    m_pMenu->addAction(QStringLiteral("Füge GoTo Koordinate ein"), this, &CModuleTrack::InsertGoToTarget);
    // Enabled once the map's measurement is given (SetMeasurement).
    m_pMenu
        ->addAction(QStringLiteral("Füge Längenmessung aus Karte ein"), this,
                    &CModuleTrack::InsertMeasurement)
        ->setEnabled(false);

    if (const QString path = readSetting(key, TrackSettings::kTrack); !path.isEmpty()) Open(path);
}

QAction* CModuleTrack::Command(const QString& text) const {
    for (QAction* action : m_pMenu->actions())
        if (action->text() == text) return action;
    return nullptr;
}

bool CModuleTrack::Open(const QString& path) {
    QString error;
    const bool ok = LoadTrackFile(path, m_readLog, m_track, error);
    m_strPath = path;
    m_pPath->setText(QFileInfo(path).fileName());
    m_pPath->setToolTip(path);
    CRegistryKey key;
    writeSetting(key, TrackSettings::kTrack, path);
    Rebuild();
    return ok;
}

void CModuleTrack::OpenChosen() {
    const QString path =
        m_chooseFile(QStringLiteral("Track öffnen"), m_strPath, QString::fromLatin1(kOpenFilter), false);
    if (!path.isEmpty()) Open(path);
}

void CModuleTrack::Save() {
    if (m_strPath.isEmpty() || TrackFileKindOf(m_strPath) == TrackFileKind::Log) {
        SaveAs(); // a log is never overwritten
        return;
    }
    WriteTo(m_strPath);
}

void CModuleTrack::SaveAs() {
    QString path = m_chooseFile(QStringLiteral("Track speichern als ..."), m_strPath,
                                QString::fromLatin1(kSaveFilter), true);
    if (path.isEmpty()) return;
    const QFileInfo chosen(path);
    if (TrackFileKindOf(path) != TrackFileKind::Gpx)
        path = chosen.path() + '/' + chosen.completeBaseName() + ".tk";
    if (!WriteTo(path)) return;
    m_strPath = path;
    m_pPath->setText(QFileInfo(path).fileName());
    CRegistryKey key;
    writeSetting(key, TrackSettings::kTrack, path);
}

bool CModuleTrack::WriteTo(const QString& path) {
    if (SaveTrackFile(path, m_track)) return true;
    QMessageBox::warning(this, QStringLiteral("Tarvik"), QStringLiteral("Could not write file"));
    return false;
}

void CModuleTrack::DeleteSelected() {
    std::vector<int> rows;
    for (QTreeWidgetItem* item : m_pList->selectedItems())
        rows.push_back(m_pList->indexOfTopLevelItem(item));
    std::ranges::sort(rows, std::greater<>());
    for (const int row : rows)
        m_track.erase(m_track.begin() + row);
    Rebuild();
}

void CModuleTrack::DeleteAll() {
    m_track.clear();
    Rebuild();
}

void CModuleTrack::InsertGoToTarget() {
    double lon = 0, lat = 0;
    if (m_target.GetTarget(lon, lat)) InsertPoints({{lon, lat}});
}

void CModuleTrack::SetMeasurement(const CMeasurement* pMeasurement) {
    m_pMeasurement = pMeasurement;
    Command(QStringLiteral("Füge Längenmessung aus Karte ein"))->setEnabled(pMeasurement != nullptr);
}

void CModuleTrack::InsertMeasurement() {
    if (m_pMeasurement && !m_pMeasurement->Points().empty()) InsertPoints(m_pMeasurement->Points());
}

void CModuleTrack::InsertPoints(const TrackVertices& points) {
    int at = static_cast<int>(m_track.size());
    for (QTreeWidgetItem* item : m_pList->selectedItems())
        at = std::min(at, m_pList->indexOfTopLevelItem(item));
    m_track.insert(m_track.begin() + at, points.begin(), points.end());
    Rebuild();
}

void CModuleTrack::Rebuild() {
    m_pList->clear();
    const std::vector<double> km = RunningKm(m_track);
    QList<QTreeWidgetItem*> items;
    for (size_t i = 0; i < m_track.size(); ++i) {
        auto* item = new QTreeWidgetItem(
            {QString::asprintf("%d", static_cast<int>(i)), QString::asprintf("%.04f", m_track[i].m_dLon),
             QString::asprintf("%.04f", m_track[i].m_dLat), QString::asprintf("%.03f", km[i])});
        for (int column = 0; column < 4; ++column)
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        items.push_back(item);
    }
    m_pList->addTopLevelItems(items);
    Q_EMIT trackChanged();
}
