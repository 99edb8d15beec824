#include "integrations/ui/CModuleTMC.h"

#include "integrations/TmcStatus.h"
#include "integrations/tmc/CTmcReceiver.h"
#include "integrations/tmc/TmcModes.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

CModuleTMC::CModuleTMC(CTmcReceiver& receiver, const TmcStatus& status, QWidget* parent)
    : CPageView(parent), m_receiver(receiver), m_status(status), m_pModes(new QButtonGroup(this)) {
    auto* layout = new QVBoxLayout(this);
    for (int mode = 0; mode < TmcModes::kCount; ++mode) {
        auto* button = new QRadioButton(QString::fromUtf8(TmcModes::kModes[mode].menuText), this);
        m_pModes->addButton(button, mode);
        layout->addWidget(button);
    }
    if (QAbstractButton* current = m_pModes->button(m_receiver.Mode())) current->setChecked(true);
    connect(m_pModes, &QButtonGroup::idClicked, &m_receiver, &CTmcReceiver::SetMode);

    m_pStatus = new QLabel(this);
    m_pStation = new QLabel(this);
    m_pCount = new QLabel(this);
    m_pHealth = new QLabel(this);
    m_pAge = new QLabel(this);
    for (QLabel* label : {m_pStatus, m_pStation, m_pCount, m_pHealth, m_pAge})
        layout->addWidget(label);
    layout->addStretch();
    connect(&m_receiver, &CTmcReceiver::changed, this, &CModuleTMC::ShowState);
    ShowState();
}

void CModuleTMC::ShowState() {
    m_pStatus->setText(m_receiver.StatusText());
    m_pStation->setText(m_status.strStation);
    m_pCount->setText(m_status.IsCountKnown() ? QString::asprintf("TMC alle: %d", m_status.nMessageCount)
                                              : QString());
    m_pHealth->setText(m_receiver.InitResult() == 0 ? m_receiver.HealthText() : QString());
    m_pAge->setText(m_receiver.InitResult() == 0 ? QString::number(m_receiver.SecondsSinceUpdate())
                                                 : QString());
}
