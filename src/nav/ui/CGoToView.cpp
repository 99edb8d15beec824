#include "nav/ui/CGoToView.h"

#include "nav/CoordinateText.h"
#include "nav/goto/GoToReading.h"
#include "nav/goto/GoToSettings.h"
#include "nav/goto/GoToTarget.h"
#include "nav/goto/TargetNames.h"
#include "nav/poi/PoiConversion.h"
#include "nav/ui/CBeepConfigDialog.h"
#include "nav/ui/CCalcGotoPosDialog.h"
#include "nav/ui/GoToArrow.h"
#include "nav/waypoints/WaypointList.h"
#include "platform/SoundOutput.h"
#include "settings/CRegistryKey.h"
#include "shell/ui/FittedLabel.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int kNoticeMs = 500;
constexpr int kTonePauseMs = 60;

QLineEdit* coordinateEdit(QWidget* parent, const char* name, const QString& placeholder) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setPlaceholderText(placeholder);
    return edit;
}

} // namespace

CGoToView::CGoToView(CGoToTarget& target, CWaypointList& waypoints, const QString& waypointFile,
                     Services services, QWidget* parent)
    : CPageView(parent), m_target(target), m_waypoints(waypoints), m_services(std::move(services)) {
    if (!m_services.chooseFile)
        m_services.chooseFile = [this](const QString& title, const QString& start, const QString& filter,
                                       bool bSave) {
            return bSave ? QFileDialog::getSaveFileName(this, title, start, filter)
                         : QFileDialog::getOpenFileName(this, title, start, filter);
        };
    if (!m_services.ask)
        m_services.ask = [this](const QString& question) {
            return QMessageBox::question(this, QStringLiteral("Tarvik"), question) == QMessageBox::Yes;
        };
    CRegistryKey key;
    m_bToNorth = readSetting(key, GoToSettings::kShowToNorth);
    m_bBeep = readSetting(key, GoToSettings::kBeep);
    m_nBeepVolume = std::clamp(readSetting(key, GoToSettings::kBeepVolume), 0, 65535);
    m_beepCounter.SetRepeat(std::max<uint8_t>(1, readSetting(key, GoToSettings::kBeepRepeat)));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(3);
    for (FittedLabel*& field : m_pField)
        field = new FittedLabel(this);
    m_pArrow = new GoToArrow(this);
    grid->addWidget(m_pField[0], 0, 0, 1, 2);
    grid->addWidget(m_pArrow, 0, 2, 1, 2);
    grid->addWidget(m_pField[1], 1, 0, 1, 2);
    grid->addWidget(m_pField[2], 1, 2, 1, 2);
    m_pCurrent = new QLabel(this);
    grid->addWidget(m_pCurrent, 2, 0, 1, 4);

    m_pName = new QLineEdit(this);
    m_pName->setPlaceholderText(QStringLiteral("Name"));
    auto* menuButton = new QToolButton(this);
    menuButton->setText(QStringLiteral("Menü"));
    menuButton->setPopupMode(QToolButton::InstantPopup);
    m_pMenu = new QMenu(this);
    menuButton->setMenu(m_pMenu);
    grid->addWidget(m_pName, 3, 0, 1, 3);
    grid->addWidget(menuButton, 3, 3);

    m_pLat = coordinateEdit(this, "lat", QStringLiteral("Breite"));
    m_pLon = coordinateEdit(this, "lon", QStringLiteral("Länge"));
    m_pZone = coordinateEdit(this, "zone", QStringLiteral("Zone"));
    m_pHemisphere = coordinateEdit(this, "hemisphere", QStringLiteral("N/S"));
    m_pEasting = coordinateEdit(this, "easting", QStringLiteral("Ost"));
    m_pNorthing = coordinateEdit(this, "northing", QStringLiteral("Nord"));
    m_pMgrs = coordinateEdit(this, "mgrs", QStringLiteral("MGRS"));
    grid->addWidget(m_pLat, 4, 0, 1, 2);
    grid->addWidget(m_pLon, 4, 2, 1, 2);
    grid->addWidget(m_pZone, 5, 0);
    grid->addWidget(m_pHemisphere, 5, 1);
    grid->addWidget(m_pEasting, 5, 2);
    grid->addWidget(m_pNorthing, 5, 3);
    grid->addWidget(m_pMgrs, 6, 0, 1, 4);
    for (QLineEdit* edit : {m_pLat, m_pLon, m_pZone, m_pHemisphere, m_pEasting, m_pNorthing, m_pMgrs})
        connect(edit, &QLineEdit::textEdited, this, &CGoToView::TypedTargetEdited);
    connect(m_pName, &QLineEdit::textEdited, this, &CGoToView::TypedTargetEdited);

    m_pList = new QListWidget(this);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_pList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { SelectWaypoint(m_pList->row(item)); });
    connect(m_pList, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { m_pMenu->popup(m_pList->viewport()->mapToGlobal(at)); });
    grid->addWidget(m_pList, 7, 0, 1, 4);
    m_pShowCurrent = new QCheckBox(QStringLiteral("GPS Position zeigen"), this);
    m_pShowCurrent->setChecked(readSetting(key, GoToSettings::kShowCurrent));
    connect(m_pShowCurrent, &QCheckBox::toggled, this, [this](bool on) {
        CRegistryKey k;
        writeSetting(k, GoToSettings::kShowCurrent, on);
        OnUpdate(0);
    });
    grid->addWidget(m_pShowCurrent, 8, 0, 1, 4);
    // The figures are what is read while driving: they get the room, the list what is left.
    grid->setRowStretch(0, 4);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(7, 2);
    for (FittedLabel* field : m_pField)
        field->setMinimumHeight(fontMetrics().height() * 2);
    m_pArrow->setMinimumSize(fontMetrics().height() * 2, fontMetrics().height() * 2);
    m_pList->setMinimumHeight(fontMetrics().height() * 3);

    m_pNotice = new QLabel(this);
    m_pNotice->setAutoFillBackground(true);
    m_pNotice->setAlignment(Qt::AlignCenter);
    m_pNotice->hide();

    BuildMenu();
    connect(&m_target, &CGoToTarget::changed, this, [this] {
        if (!m_bTargetFromList) m_waypoints.SetCurrent(std::nullopt);
        if (!m_bTyping) ShowTargetInFields(); // the fields keep what the user types
        OnUpdate(0);
    });
    connect(&m_waypoints, &CWaypointList::changed, this, &CGoToView::RefreshList);
    m_waypoints.Load(waypointFile);
    ApplyFormat();
    ShowTargetInFields();
    OnUpdate(0);
}

void CGoToView::BuildMenu() {
    const auto add = [this](const char* text, auto slot) {
        m_pMenu->addAction(QString::fromUtf8(text), this, slot);
    };
    add("Übernehme GPS Position", &CGoToView::TakeGpsPosition);
    add("Übernehme MN Kartenmittelpunkt Koordinaten", &CGoToView::TakeNavMapCentre);
    add("Position vom letzen MN Klick", &CGoToView::TakeNavLastClick);
    // Offered only while the navigation program tells them.
    connect(m_pMenu, &QMenu::aboutToShow, this, [this] {
        Command(QStringLiteral("Übernehme MN Kartenmittelpunkt Koordinaten"))
            ->setEnabled(m_services.navMapCentre && m_services.navMapCentre());
        Command(QStringLiteral("Position vom letzen MN Klick"))
            ->setEnabled(m_services.navLastClick && m_services.navLastClick());
    });
    add("Setze MN Ziel ", [this] {
        double lon = 0, lat = 0;
        if (m_services.setNavigationTarget && m_target.GetTarget(lon, lat))
            m_services.setNavigationTarget(lon, lat, m_target.Name());
    });
    add("Zeige Position in Karte", [this] {
        if (m_services.showMap) m_services.showMap();
    });
    add("Zielberechnung", &CGoToView::CalculateTarget);
    m_pMenu->addSeparator();
    add("Ändern der Waypoint Datei", &CGoToView::ChangeWaypointFile);
    add("Waypoint Speichern", &CGoToView::SaveWaypoint);
    add("Waypoint Löschen", &CGoToView::DeleteWaypoint);
    add("Vorheriger Waypoint", &CGoToView::PreviousWaypoint);
    add("Nächster Waypoint", &CGoToView::NextWaypoint);
    add("Import", &CGoToView::ImportWaypoints);
    add("Export (GPX)", &CGoToView::ExportWaypoints);
    m_pMenu->addSeparator();
    add("Beep Konfiguration", &CGoToView::ConfigureBeep);
}

QAction* CGoToView::Command(const QString& text) const {
    for (QAction* action : m_pMenu->actions())
        if (action->text() == text) return action;
    return nullptr;
}

void CGoToView::SetTarget(double dLon, double dLat, const QString& strName) {
    m_target.SetTarget(dLon, dLat, strName);
}

bool CGoToView::GetTarget(double& dLon, double& dLat) const {
    return m_target.GetTarget(dLon, dLat);
}

void CGoToView::OnUpdate(uint16_t) {
    if (const PosFormat format = readPosFormat(); format != m_format) {
        m_format = format;
        ApplyFormat();
        ShowTargetInFields();
    }
    const GoToFix fix = m_services.fix ? m_services.fix() : GoToFix{};
    m_pCurrent->setVisible(m_pShowCurrent->isChecked());
    m_pCurrent->setText(fix.m_bValid ? FormatCoordinate(fix.m_dLat, DegreeNotation(m_format), true) + "  " +
                                           FormatCoordinate(fix.m_dLon, DegreeNotation(m_format), false)
                                     : QString());
    double lon = 0, lat = 0;
    const bool targetSet = m_target.GetTarget(lon, lat);
    if (!fix.m_bValid || !targetSet) {
        m_pField[0]->setText(fix.m_bValid ? QString() : QStringLiteral("GPS!"));
        m_pField[1]->setText({});
        m_pField[2]->setText({});
        m_pArrow->setAngle(std::nullopt);
        return;
    }
    const GoToReading r =
        ReadGoTo(fix.m_dLon, fix.m_dLat, lon, lat, fix.m_dSpeedKmh, fix.m_dHeadingDeg, m_bToNorth);
    m_pField[0]->setText(r.m_strField1);
    m_pField[1]->setText(r.m_strField2);
    m_pField[2]->setText(r.m_strField3);
    m_pArrow->setAngle(r.m_dArrowDeg);
    if (m_bBeep && !m_bBeepMuted && m_beepCounter.Tick())
        Beep(r.m_dDistanceKm, r.m_dCourseDeg, fix.m_dHeadingDeg);
}

void CGoToView::Beep(double distanceKm, double courseDeg, double headingDeg) {
    const ApproachBeep beep = ApproachBeepFor(distanceKm, courseDeg, headingDeg, m_bToNorth);
    m_lastBeep = beep;
    if (!m_services.pSound) return;
    QList<Tone> tones;
    for (int i = 0; i < beep.m_nTones; ++i) {
        if (i > 0) tones.push_back({0, kTonePauseMs});
        tones.push_back({beep.m_nFrequencyHz, beep.m_nDurationMs});
    }
    m_services.pSound->playTones(tones, static_cast<uint16_t>(m_nBeepVolume));
}

void CGoToView::ApplyFormat() {
    const std::pair<QList<QLineEdit*>, bool> groups[] = {
        {{m_pLat, m_pLon}, UsesLatLonFields(m_format)},
        {{m_pZone, m_pHemisphere, m_pEasting, m_pNorthing}, UsesUtmFields(m_format)},
        {{m_pMgrs}, UsesMgrsField(m_format)},
    };
    for (const auto& [edits, used] : groups)
        for (QLineEdit* edit : edits) {
            edit->setEnabled(used);
            edit->setVisible(used); // a small screen has no room for the fields of other notations
        }
    const bool metres = m_format == PosFormat::FalkMarcoPolo;
    m_pLat->setPlaceholderText(metres ? QStringLiteral("Y (m)") : QStringLiteral("Breite"));
    m_pLon->setPlaceholderText(metres ? QStringLiteral("X (m)") : QStringLiteral("Länge"));
}

void CGoToView::ShowTargetInFields() {
    double lon = 0, lat = 0;
    const bool set = m_target.GetTarget(lon, lat);
    const TypedTargetFields f = set ? FormatTypedTarget(m_format, {lat, lon}) : TypedTargetFields{};
    m_pLat->setText(f.m_strLat);
    m_pLon->setText(f.m_strLon);
    m_pZone->setText(f.m_strZone);
    m_pHemisphere->setText(f.m_strHemisphere);
    m_pEasting->setText(f.m_strEasting);
    m_pNorthing->setText(f.m_strNorthing);
    m_pMgrs->setText(f.m_strMgrs);
    m_pName->setText(m_target.Name());
}

void CGoToView::TypedTargetEdited() {
    const TypedTargetFields fields{m_pLat->text(),        m_pLon->text(),     m_pZone->text(),
                                   m_pHemisphere->text(), m_pEasting->text(), m_pNorthing->text(),
                                   m_pMgrs->text()};
    const auto position = ParseTypedTarget(m_format, fields);
    if (!position) return; // a failed conversion leaves the target as it was
    m_bTyping = true;
    m_target.SetTarget(position->m_dPosLong, position->m_dPosLat, m_pName->text());
    m_bTyping = false;
}

void CGoToView::TakeGpsPosition() {
    const GoToFix fix = m_services.fix ? m_services.fix() : GoToFix{};
    const QDateTime now = m_services.localNow ? m_services.localNow() : QDateTime::currentDateTime();
    if (!fix.m_bValid) {
        // Without a fix from the navigation program its map centre stands in for the position.
        const auto centre =
            fix.m_bNavigationSource && m_services.navMapCentre ? m_services.navMapCentre() : std::nullopt;
        if (centre) SetTarget(centre->m_dPosLong, centre->m_dPosLat, TarvikPosName(now));
        return;
    }
    SetTarget(fix.m_dLon, fix.m_dLat,
              fix.m_bNavigationSource ? TarvikPosName(now) : TarvikPosNameWithAltitude(now, fix.m_dAltitude));
}

void CGoToView::TakeNavMapCentre() {
    if (const auto centre = m_services.navMapCentre ? m_services.navMapCentre() : std::nullopt)
        SetTarget(centre->m_dPosLong, centre->m_dPosLat, QStringLiteral("MN Map Position"));
}

void CGoToView::TakeNavLastClick() {
    const auto click = m_services.navLastClick ? m_services.navLastClick() : std::nullopt;
    if (!click) return;
    const QDateTime now = m_services.localNow ? m_services.localNow() : QDateTime::currentDateTime();
    SetTarget(click->m_dPosLong, click->m_dPosLat, MNClickName(now));
}

void CGoToView::CalculateTarget() {
    double lon = 0, lat = 0;
    const GoToFix fix = m_services.fix ? m_services.fix() : GoToFix{};
    std::optional<GeoPosition> from;
    if (m_target.GetTarget(lon, lat))
        from = GeoPosition{lat, lon};
    else if (fix.m_bValid)
        from = GeoPosition{fix.m_dLat, fix.m_dLon};
    CCalcGotoPosDialog dialog(from, this);
    if (dialog.exec() == QDialog::Accepted && dialog.Target())
        SetTarget(dialog.Target()->m_dPosLong, dialog.Target()->m_dPosLat, m_pName->text());
}

void CGoToView::ChangeWaypointFile() {
    const QString path = m_services.chooseFile(QStringLiteral("Waypoint Datei"), m_waypoints.Path(),
                                               QStringLiteral("Waypoints (*.asc *.txt *.ini)"), false);
    if (path.isEmpty()) return;
    CRegistryKey key;
    writeSetting(key, GoToSettings::kWaypoints, path);
    m_waypoints.Load(path);
}

void CGoToView::SaveWaypoint() {
    double lon = 0, lat = 0;
    if (m_waypoints.Current() || !m_target.GetTarget(lon, lat)) return;
    QString name = m_pName->text().trimmed();
    if (name.isEmpty())
        name = TarvikPosName(m_services.localNow ? m_services.localNow() : QDateTime::currentDateTime());
    m_waypoints.Append({lon, lat, name});
    ShowNotice(name);
}

void CGoToView::DeleteWaypoint() {
    if (!m_waypoints.Current()) return;
    if (m_services.ask(QStringLiteral("Soll dieser Waypoint wirklich gelöscht werden?")))
        m_waypoints.RemoveCurrent();
}

void CGoToView::PreviousWaypoint() {
    if (m_waypoints.CanPrevious()) SelectWaypoint(static_cast<int>(*m_waypoints.Current()) - 1);
}

void CGoToView::NextWaypoint() {
    if (m_waypoints.CanNext()) SelectWaypoint(static_cast<int>(*m_waypoints.Current()) + 1);
}

void CGoToView::ImportWaypoints() {
    const QString path =
        m_services.chooseFile(QStringLiteral("Import"), QFileInfo(m_waypoints.Path()).path(),
                              QStringLiteral("Positionen (*.txt *.asc *.csv *.gpx);;Alle (*)"), false);
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return;
    const QByteArray bytes = file.readAll();
    if (PoiFormatOf(path) != PoiFormat::Gpx) {
        m_waypoints.Import(bytes);
        return;
    }
    QString error;
    if (const auto points = ReadNamedPois(bytes, PoiFormat::Gpx, error)) m_waypoints.Merge(*points);
}

void CGoToView::ExportWaypoints() {
    const QString path = m_services.chooseFile(QStringLiteral("Export"), QFileInfo(m_waypoints.Path()).path(),
                                               QStringLiteral("GPX (*.gpx)"), true);
    if (path.isEmpty()) return;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(WriteNamedPois(m_waypoints.Items(), PoiFormat::Gpx));
}

void CGoToView::ConfigureBeep() {
    CRegistryKey key;
    CBeepConfigDialog dialog(m_bBeep, m_nBeepVolume, readSetting(key, GoToSettings::kBeepRepeat), this);
    m_bBeepMuted = true;
    const bool ok = dialog.exec() == QDialog::Accepted;
    m_bBeepMuted = false;
    if (!ok) return;
    dialog.Store();
    m_bBeep = dialog.Beep();
    m_nBeepVolume = dialog.Volume();
    m_beepCounter.SetRepeat(static_cast<uint8_t>(dialog.Repeat()));
}

void CGoToView::SelectWaypoint(int row) {
    if (row < 0 || row >= static_cast<int>(m_waypoints.Items().size())) return;
    const Waypoint w = m_waypoints.Items()[static_cast<size_t>(row)];
    m_waypoints.SetCurrent(static_cast<size_t>(row));
    m_bTargetFromList = true;
    SetTarget(w.m_dLon, w.m_dLat, w.m_strName);
    m_bTargetFromList = false;
}

void CGoToView::RefreshList() {
    const QSignalBlocker blocker(m_pList);
    m_pList->clear();
    for (const Waypoint& w : m_waypoints.Items())
        m_pList->addItem(w.m_strName);
    if (const auto current = m_waypoints.Current()) m_pList->setCurrentRow(static_cast<int>(*current));
    UpdateCommandStates();
}

void CGoToView::UpdateCommandStates() {
    const bool selected = m_waypoints.Current().has_value();
    Command(QStringLiteral("Waypoint Speichern"))->setEnabled(!selected);
    Command(QStringLiteral("Waypoint Löschen"))->setEnabled(selected);
    Command(QStringLiteral("Vorheriger Waypoint"))->setEnabled(m_waypoints.CanPrevious());
    Command(QStringLiteral("Nächster Waypoint"))->setEnabled(m_waypoints.CanNext());
}

void CGoToView::ShowNotice(const QString& text) {
    m_pNotice->setText(text);
    m_pNotice->adjustSize();
    m_pNotice->move((width() - m_pNotice->width()) / 2, (height() - m_pNotice->height()) / 2);
    m_pNotice->raise();
    m_pNotice->show();
    QTimer::singleShot(kNoticeMs, m_pNotice, &QWidget::hide);
}

QString CGoToView::FieldText(int field) const {
    return m_pField[field]->text();
}

std::optional<double> CGoToView::ArrowAngle() const {
    return m_pArrow->angle();
}

QLineEdit* CGoToView::CoordinateField(const char* objectName) const {
    return findChild<QLineEdit*>(QString::fromLatin1(objectName));
}
