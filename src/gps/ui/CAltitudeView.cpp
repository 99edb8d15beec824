#include "gps/ui/CAltitudeView.h"

#include "gps/CFendixDoc.h"
#include "shell/ui/FittedLabel.h"
#include "shell/ui/LinePlot.h"

#include <QGridLayout>

CAltitudeView::CAltitudeView(const CFendixDoc& doc, QWidget* parent) : CPageView(parent), m_doc(doc) {
    m_pAltitude = new FittedLabel(this);
    m_pGradient = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pExtremes = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pOffset = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pProfile = new LinePlot(this);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->addWidget(m_pAltitude, 0, 0, 1, 2);
    grid->addWidget(m_pExtremes, 1, 0);
    grid->addWidget(m_pGradient, 1, 1);
    grid->addWidget(m_pOffset, 2, 0, 1, 2);
    grid->addWidget(m_pProfile, 3, 0, 1, 2);
    grid->setRowStretch(0, 5);
    grid->setRowStretch(1, 2);
    grid->setRowStretch(2, 1);
    grid->setRowStretch(3, 7);
    OnUpdate(0);
}

void CAltitudeView::OnUpdate(uint16_t) {
    const GpsFix& fix = m_doc.Fix();
    const TourStatistics& stats = m_doc.Statistics();
    m_pAltitude->setText(fix.hasFix() ? QString::asprintf("%.0f m", fix.m_fAltitude)
                                      : QStringLiteral("-- m"));
    m_pGradient->setText(QString::asprintf("%+.0f %%", stats.m_fGradient));
    const bool bExtremes = stats.m_fMinAltitude <= stats.m_fMaxAltitude;
    m_pExtremes->setText(
        bExtremes ? QString::asprintf("\u2193%.0f  \u2191%.0f m", stats.m_fMinAltitude, stats.m_fMaxAltitude)
                  : QStringLiteral("\u2193--  \u2191-- m"));
    m_pOffset->setText(QStringLiteral("Höhenkorrektur %1 m%2")
                           .arg(fix.m_nAltitudeOffset)
                           .arg(fix.m_bAutoAltitudeOffset ? QStringLiteral(" (Geoid)") : QString()));
    // One point per new fix of the run; a new run (the distance falls back) starts a new profile.
    const double km = stats.m_dRunDistance;
    if (!m_profile.empty() && km < m_profile.back().x()) m_profile.clear();
    if (fix.hasFix() && fix.m_tFixTime != m_tLastSample) {
        m_profile.emplace_back(km, fix.m_fAltitude);
        m_tLastSample = fix.m_tFixTime;
        m_pProfile->setPoints(m_profile, QStringLiteral("Höhenprofil (m über km)"),
                              [](double x) { return QString::number(x, 'f', x < 10 ? 1 : 0); });
    }
}
