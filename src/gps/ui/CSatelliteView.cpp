#include "gps/ui/CSatelliteView.h"

#include "gps/CFendixDoc.h"
#include "gps/ui/SkyPlot.h"
#include "shell/ui/FittedLabel.h"

#include <QGridLayout>

namespace {

QString fixText(const GpsFix& fix, const SatelliteTable& satellites) {
    static const char* const kModes[] = {"Kein Fix", "Kein Fix", "2D-Fix", "3D-Fix"};
    const int mode = satellites.fixMode();
    const QString state = mode >= 1 && mode <= 3 ? QString::fromLatin1(kModes[mode])
                          : fix.hasFix()         ? QStringLiteral("Fix")
                                                 : QStringLiteral("Kein Fix");
    return QStringLiteral("%1  %2/%3 Sat.").arg(state).arg(fix.m_nSatellites).arg(satellites.inView().size());
}

} // namespace

CSatelliteView::CSatelliteView(const CFendixDoc& doc, QWidget* parent) : CPageView(parent), m_doc(doc) {
    m_pSky = new SkyPlot(this);
    m_pBars = new SignalBars(this);
    m_pFix = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pDop = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    OnUpdate(0);
}

void CSatelliteView::resizeEvent(QResizeEvent* event) {
    // Wide screens put the bars beside the sky, narrow ones below it.
    auto* grid = static_cast<QGridLayout*>(layout());
    const bool bWide = width() > height() * 1.2;
    for (QWidget* widget : {static_cast<QWidget*>(m_pSky), static_cast<QWidget*>(m_pBars),
                            static_cast<QWidget*>(m_pFix), static_cast<QWidget*>(m_pDop)})
        grid->removeWidget(widget);
    for (int i = 0; i < 4; ++i) {
        grid->setRowStretch(i, 0);
        grid->setColumnStretch(i, 0);
    }
    if (bWide) {
        grid->addWidget(m_pSky, 0, 0, 3, 1);
        grid->addWidget(m_pFix, 0, 1);
        grid->addWidget(m_pDop, 1, 1);
        grid->addWidget(m_pBars, 2, 1);
        grid->setColumnStretch(0, 1);
        grid->setColumnStretch(1, 1);
        grid->setRowStretch(0, 1);
        grid->setRowStretch(1, 1);
        grid->setRowStretch(2, 6);
    } else {
        grid->addWidget(m_pFix, 0, 0);
        grid->addWidget(m_pSky, 1, 0);
        grid->addWidget(m_pBars, 2, 0);
        grid->addWidget(m_pDop, 3, 0);
        grid->setRowStretch(0, 1);
        grid->setRowStretch(1, 10);
        grid->setRowStretch(2, 4);
        grid->setRowStretch(3, 1);
    }
    CPageView::resizeEvent(event);
}

void CSatelliteView::OnUpdate(uint16_t) {
    const SatelliteTable& satellites = m_doc.Satellites();
    m_pSky->setSatellites(satellites.inView());
    m_pBars->setSatellites(satellites.inView());
    m_pFix->setText(fixText(m_doc.Fix(), satellites));
    m_pDop->setText(QString::asprintf("PDOP %.1f  HDOP %.1f  VDOP %.1f", satellites.pdop(), satellites.hdop(),
                                      satellites.vdop()));
}
