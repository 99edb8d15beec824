#include "gps/ui/CSpeedView.h"

#include "gps/CFendixDoc.h"
#include "gps/sources/SourceTable.h"
#include "shell/ui/FittedLabel.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QPainter>

// The speed against the maximum speed of the run, as a horizontal bar.
class SpeedBar : public QWidget {
public:
    using QWidget::QWidget;
    void setFraction(double fraction) {
        m_dFraction = std::clamp(fraction, 0.0, 1.0);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        painter.fillRect(QRectF(0, 0, width() * m_dFraction, height()), palette().color(QPalette::Highlight));
    }

private:
    double m_dFraction = 0;
};

namespace {

// Average in km/h of `km` over `seconds`; empty while the time is 1 s or less.
QString average(double km, int32_t seconds, const char* format) {
    return seconds > 1 ? QString::asprintf(format, km / seconds * 3600.0) : QString();
}

} // namespace

CSpeedView::CSpeedView(const CFendixDoc& doc, QWidget* parent, TargetDistance targetDistance)
    : CPageView(parent), m_doc(doc), m_targetDistance(std::move(targetDistance)) {
    m_pFixState = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pStatus = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pSpeed = new FittedLabel(this);
    m_pBar = new SpeedBar(this);
    m_pAverage = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pTourAverage = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pDistance = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pTourDistance = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pCounter = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
    m_pTime = new FittedLabel(this, Qt::AlignRight | Qt::AlignVCenter);
    m_pTarget = new FittedLabel(this);
    m_pCounter->setToolTip(QStringLiteral("Tippen setzt den Zähler zurück"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(m_pFixState, 0, 0);
    grid->addWidget(m_pStatus, 0, 1);
    grid->addWidget(m_pSpeed, 1, 0, 1, 2);
    grid->addWidget(m_pBar, 2, 0, 1, 2);
    grid->addWidget(m_pAverage, 3, 0);
    grid->addWidget(m_pTourAverage, 3, 1);
    grid->addWidget(m_pDistance, 4, 0);
    grid->addWidget(m_pTourDistance, 4, 1);
    grid->addWidget(m_pCounter, 5, 0);
    grid->addWidget(m_pTime, 5, 1);
    grid->addWidget(m_pTarget, 6, 0, 1, 2);
    grid->setRowStretch(0, 2);
    grid->setRowStretch(1, 8);
    grid->setRowStretch(2, 1);
    for (int row = 3; row <= 6; ++row)
        grid->setRowStretch(row, 2);
    OnUpdate(0);
}

double CSpeedView::TripDistance() const {
    return m_doc.Statistics().m_dMovingDistance;
}

void CSpeedView::OnUpdate(uint16_t) {
    const GpsFix& fix = m_doc.Fix();
    const TourStatistics& stats = m_doc.Statistics();
    m_pFixState->setText(fix.hasFix() ? QStringLiteral("GPS!") : QStringLiteral("GPS ?"));
    m_pSpeed->setText(QString::asprintf("%.01f", fix.m_fSpeed));
    m_pAverage->setText(average(stats.m_dMovingDistance, stats.m_nMovingTime, "%.01f"));
    m_pTourAverage->setText(average(stats.m_dTourDistance, stats.m_nTourTime, "(%.01f)"));
    m_pDistance->setText(QString::asprintf("%.02f", TripDistance()));
    m_pTourDistance->setText(QString::asprintf("(%.02f", stats.m_dTourDistance));
    m_pCounter->setText(QString::asprintf("%.02f", TripDistance() - m_dCounterStart));
    m_pBar->setFraction(stats.m_fMaxSpeed > 0 ? fix.m_fSpeed / stats.m_fMaxSpeed : 0.0);
    m_pStatus->setText(fix.m_nSource == SourceTable::kMobileNavigator
                           ? QStringLiteral("MN Daten")
                           : QString::asprintf("GPS%d", fix.m_nSatellites));
    const int64_t secondOfDay = ((fix.m_tFixTime % 86400) + 86400) % 86400; // the fix time is local already
    m_pTime->setText(QString::asprintf("%2d:%02d:%02d", int(secondOfDay / 3600), int(secondOfDay / 60 % 60),
                                       int(secondOfDay % 60)));
    const auto target = m_targetDistance ? m_targetDistance() : std::nullopt;
    m_pTarget->setVisible(target.has_value());
    if (target) m_pTarget->setText(QString::asprintf("Ziel: %.02f km", *target));
}

void CSpeedView::ResetCounter() {
    m_dCounterStart = TripDistance();
    OnUpdate(0);
}

void CSpeedView::mouseReleaseEvent(QMouseEvent* event) {
    if (m_pCounter->geometry().contains(event->position().toPoint())) ResetCounter();
    CPageView::mouseReleaseEvent(event);
}
