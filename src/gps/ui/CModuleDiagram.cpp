#include "gps/ui/CModuleDiagram.h"

#include "gps/CFendixDoc.h"
#include "gps/RecordingSettings.h"
#include "gps/TrackLogReader.h"
#include "gps/sources/SourceSettings.h"
#include "nav/GeoSphere.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "shell/ui/LinePlot.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr int64_t kRereadSeconds = 15; // the current run is read again at most this often

QString clockText(double seconds) {
    const int s = int(seconds);
    return QString::asprintf("%d:%02d", s / 3600, s / 60 % 60);
}

// The time axis: "m:ss" within the first hour, then "h:mm:ss", so that a short run's steps differ.
QString axisClockText(double seconds) {
    const int s = int(seconds);
    return s < 3600 ? QString::asprintf("%d:%02d", s / 60, s % 60)
                    : QString::asprintf("%d:%02d:%02d", s / 3600, s / 60 % 60, s % 60);
}

} // namespace

CModuleDiagram::CModuleDiagram(const CFendixDoc& doc, QWidget* parent) : CPageView(parent), m_doc(doc) {
    m_pChoice = new QComboBox(this);
    m_pChoice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pChoice->setMinimumContentsLength(8);
    m_pAxis = new QPushButton(this);
    m_pSpeed = new LinePlot(this);
    m_pAltitude = new LinePlot(this);
    m_pFigures = new QLabel(this);
    m_pFigures->setWordWrap(true);
    m_pFigures->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->addWidget(m_pChoice, 0, 0);
    grid->addWidget(m_pAxis, 0, 1);
    grid->addWidget(m_pSpeed, 1, 0, 1, 2);
    grid->addWidget(m_pAltitude, 2, 0, 1, 2);
    grid->addWidget(m_pFigures, 3, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(m_pChoice, &QComboBox::activated, this, [this] { Load(); });
    connect(m_pAxis, &QPushButton::clicked, this, [this] {
        m_bOverDistance = !m_bOverDistance;
        Draw();
    });
    FillChoices();
}

void CModuleDiagram::FillChoices() {
    const QString chosen = m_pChoice->currentData().toString();
    m_pChoice->clear();
    m_pChoice->addItem(QStringLiteral("Aktuelle Fahrt"), QString());
    CRegistryKey key;
    const QDir folder(DeviceRoot::current().hostPath(readSetting(key, RecordingSettings::kLogDirectory)));
    for (const QString& name :
         folder.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name | QDir::Reversed))
        m_pChoice->addItem(QFileInfo(name).completeBaseName(), folder.filePath(name));
    m_pChoice->setCurrentIndex(std::max(0, m_pChoice->findData(chosen)));
}

void CModuleDiagram::ShowLog(const QString& path) {
    FillChoices();
    int index = m_pChoice->findData(path);
    if (index < 0) {
        m_pChoice->addItem(QFileInfo(path).completeBaseName(), path);
        index = m_pChoice->count() - 1;
    }
    m_pChoice->setCurrentIndex(index);
    Load();
}

void CModuleDiagram::showEvent(QShowEvent* event) {
    Load();
    CPageView::showEvent(event);
}

void CModuleDiagram::OnUpdate(uint16_t) {
    if (!isVisible() || m_pChoice->currentIndex() != 0) return;
    // Either way: a replayed recording's times may lie before the time the page was first read.
    if (std::llabs(m_doc.Fix().m_tFixTime - m_tLoaded) >= kRereadSeconds) Load();
}

void CModuleDiagram::Load() {
    const bool bCurrentRun = m_pChoice->currentIndex() <= 0;
    QFile file(bCurrentRun ? m_doc.Log().path() : m_pChoice->currentData().toString());
    m_points.clear();
    CRegistryKey key;
    if (file.open(QIODevice::ReadOnly))
        ReadFromFile(&file, m_points, m_doc.Fix(), m_doc.Clock(), true,
                     readSetting(key, SourceSettings::kAcceptAllTalkers));
    std::erase_if(m_points, [](const TrackPoint& point) { return point.m_nValid == 0; });
    m_km.assign(m_points.size(), 0.0);
    for (size_t i = 1; i < m_points.size(); ++i)
        m_km[i] = m_km[i - 1] + std::max(0.0, GeoDistance(m_points[i - 1].m_dLong, m_points[i - 1].m_dLat,
                                                          m_points[i].m_dLong, m_points[i].m_dLat));
    // A log of GGA alone carries no speed: then it is the distance over the time between fixes.
    if (std::ranges::all_of(m_points, [](const TrackPoint& point) { return point.m_fSpeed == 0; }))
        for (size_t i = 1; i < m_points.size(); ++i)
            if (const int64_t seconds = m_points[i].m_tTime - m_points[i - 1].m_tTime; seconds > 0)
                m_points[i].m_fSpeed = float((m_km[i] - m_km[i - 1]) * 3600.0 / double(seconds));
    m_tLoaded = m_doc.Fix().m_tFixTime;
    Draw();
}

void CModuleDiagram::Draw() {
    m_pAxis->setText(m_bOverDistance ? QStringLiteral("über km") : QStringLiteral("über Zeit"));
    std::vector<QPointF> speed, altitude;
    const int64_t start = m_points.empty() ? 0 : m_points.front().m_tTime;
    float maxSpeed = 0, minAlt = 1e9f, maxAlt = -1e9f;
    for (size_t i = 0; i < m_points.size(); ++i) {
        const TrackPoint& point = m_points[i];
        const double x = m_bOverDistance ? m_km[i] : double(point.m_tTime - start);
        if (!speed.empty() && x < speed.back().x()) continue; // a step back in time or a repeated epoch
        speed.emplace_back(x, point.m_fSpeed);
        altitude.emplace_back(x, point.m_fAltitude);
        maxSpeed = std::max(maxSpeed, point.m_fSpeed);
        minAlt = std::min(minAlt, point.m_fAltitude);
        maxAlt = std::max(maxAlt, point.m_fAltitude);
    }
    const LinePlot::AxisText axis =
        m_bOverDistance ? LinePlot::AxisText([](double km) { return QString::number(km, 'g', 4) + " km"; })
                        : LinePlot::AxisText(axisClockText);
    m_pSpeed->setPoints(speed, QStringLiteral("Geschwindigkeit km/h"), axis);
    m_pAltitude->setPoints(altitude, QStringLiteral("Höhe m"), axis);
    m_pSpeed->showAll();
    m_pAltitude->showAll();
    if (m_points.empty()) {
        m_pFigures->setText(QStringLiteral("Keine Punkte mit Fix"));
        return;
    }
    const double km = m_km.back();
    const int64_t seconds = m_points.back().m_tTime - start;
    m_pFigures->setText(QString::asprintf("%.2f km  %s h  \u00d8 %.1f km/h  max %.1f km/h  Höhe %.0f–%.0f m",
                                          km, clockText(double(seconds)).toLatin1().constData(),
                                          seconds > 0 ? km / double(seconds) * 3600.0 : 0.0, maxSpeed, minAlt,
                                          maxAlt));
}
