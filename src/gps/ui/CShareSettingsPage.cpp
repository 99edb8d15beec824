#include "gps/ui/CShareSettingsPage.h"

#include "gps/share/ShareSettings.h"
#include "settings/CRegistryKey.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

CRegistryKey splitterKey() {
    return CRegistryKey(QString::fromLatin1(GoToSettings::kVantrelKey), RegistryRoot::LocalMachine);
}

} // namespace

CShareSettingsPage::CShareSettingsPage(std::function<QString()> apply, QWidget* parent)
    : CPageView(parent), m_apply(std::move(apply)) {
    auto* form = new QWidget;
    auto* layout = new QFormLayout(form);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
    m_pShare = new QCheckBox(QStringLiteral("Weitergabe ein"), form);
    m_pPortLink = new QLineEdit(form);
    m_pTcpMode = new QComboBox(form);
    m_pTcpMode->setMinimumHeight(34);
    m_pTcpMode->addItem(QStringLiteral("aus"), ShareSettings::kTcpOff);
    m_pTcpMode->addItem(QStringLiteral("nur dieser Rechner"), ShareSettings::kTcpLoopback);
    m_pTcpMode->addItem(QStringLiteral("alle Netze"), ShareSettings::kTcpAllInterfaces);
    m_pTcpPort = new QSpinBox(form);
    m_pTcpPort->setRange(1, 65535);
    m_pSimulationSpeed = new QSpinBox(form);
    m_pSimulationSpeed->setRange(1, 1000);
    m_pSimulationSpeed->setSuffix(QStringLiteral(" km/h"));
    layout->addRow(m_pShare);
    layout->addRow(QStringLiteral("Serielle Schnittstelle:"), m_pPortLink);
    layout->addRow(QStringLiteral("TCP:"), m_pTcpMode);
    layout->addRow(QStringLiteral("TCP-Port:"), m_pTcpPort);
    layout->addRow(QStringLiteral("Simulation:"), m_pSimulationSpeed);
    m_pStatus = new QLabel(form);
    m_pStatus->setWordWrap(true);
    layout->addRow(m_pStatus);

    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(form);
    auto* applyButton = new QPushButton(QStringLiteral("Übernehmen"), this);
    applyButton->setMinimumHeight(48);
    connect(applyButton, &QPushButton::clicked, this, &CShareSettingsPage::Apply);
    auto* page = new QVBoxLayout(this);
    page->addWidget(scroll, 1);
    page->addWidget(applyButton);
    Load();
}

void CShareSettingsPage::Load() {
    CRegistryKey key = splitterKey();
    m_pShare->setChecked(readSetting(key, ShareSettings::kShare));
    m_pPortLink->setText(readSetting(key, ShareSettings::kPortLink));
    m_pTcpMode->setCurrentIndex(std::max(0, m_pTcpMode->findData(readSetting(key, ShareSettings::kTcpMode))));
    m_pTcpPort->setValue(readSetting(key, ShareSettings::kTcpPort));
    m_pSimulationSpeed->setValue(readSetting(key, ShareSettings::kSimulationSpeed));
}

void CShareSettingsPage::Apply() {
    CRegistryKey key = splitterKey();
    writeSetting(key, ShareSettings::kShare, m_pShare->isChecked());
    writeSetting(key, ShareSettings::kPortLink, m_pPortLink->text().trimmed());
    writeSetting(key, ShareSettings::kTcpMode, m_pTcpMode->currentData().toInt());
    writeSetting(key, ShareSettings::kTcpPort, m_pTcpPort->value());
    writeSetting(key, ShareSettings::kSimulationSpeed, m_pSimulationSpeed->value());
    const QString error = m_apply();
    m_pStatus->setText(!error.isEmpty()        ? error
                       : m_pShare->isChecked() ? QStringLiteral("Die Empfängerdaten werden weitergegeben.")
                                               : QStringLiteral("Die Weitergabe ist aus."));
}
