#include "nav/ui/CPOIView.h"

#include "nav/poi/PoiFile.h"
#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiSettings.h"
#include "platform/DeviceRoot.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kIconEdge = 32;
constexpr int kRowHeight = 44;

QString loadingText(int total) {
    return QString::asprintf("%d POIs loading...", total);
}

QString loadedText(int total) {
    return QString::asprintf("%d POIs geladen", total);
}

} // namespace

CPOIView::CPOIView(PoiLoader& loader, std::function<void()> showNearest, QWidget* parent)
    : CPageView(parent), m_loader(loader) {
    m_pFolder = new QLabel(this);
    m_pFolder->setWordWrap(true);
    m_pFiles = new QListWidget(this);
    m_pFiles->setIconSize(QSize(kIconEdge, kIconEdge));
    m_pFiles->setUniformItemSizes(true);
    m_pFiles->setStyleSheet(QStringLiteral("QListView::indicator { width: 22px; height: 22px; }"));
    QFont listFont = m_pFiles->font();
    listFont.setPointSizeF(listFont.pointSizeF() * 1.25);
    m_pFiles->setFont(listFont);
    m_pStatus = new QLabel(this);
    QFont statusFont = m_pStatus->font();
    statusFont.setPointSizeF(statusFont.pointSizeF() * 1.15);
    statusFont.setBold(true);
    m_pStatus->setFont(statusFont);
    auto* nearest = new QPushButton(QStringLiteral("Nächste POIs"), this);
    nearest->setMinimumHeight(kRowHeight + 4);

    connect(m_pFiles, &QListWidget::itemChanged, this, &CPOIView::Switch);
    connect(m_pFiles, &QListWidget::itemClicked, this, [](QListWidgetItem* item) {
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    connect(nearest, &QPushButton::clicked, this, [showNearest] {
        if (showNearest) showNearest();
    });
    connect(&m_loader, &PoiLoader::progress, m_pStatus,
            [this](int total) { m_pStatus->setText(loadingText(total)); });
    connect(&m_loader, &PoiLoader::loaded, m_pStatus,
            [this](int total) { m_pStatus->setText(loadedText(total)); });
    connect(&m_loader, &PoiLoader::started, m_pStatus, [this] { m_pStatus->setText(loadingText(0)); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_pFolder);
    layout->addWidget(m_pFiles, 1);
    layout->addWidget(m_pStatus);
    layout->addWidget(nearest);
    m_pStatus->setText(m_loader.isLoading() ? loadingText(0) : loadedText(m_loader.total()));
    Refresh();
}

QString CPOIView::StatusText() const {
    return m_pStatus->text();
}

void CPOIView::Refresh() {
    CRegistryKey settings;
    const QString poiPath = readSetting(settings, PoiSettings::kPoiPath);
    const QString folder = DeviceRoot::current().hostPath(poiPath);
    const QStringList names = QDir(folder).entryList({QStringLiteral("*.ov2"), QStringLiteral("*.asc")},
                                                     QDir::Files, QDir::Name | QDir::IgnoreCase);
    m_pFolder->setText(names.isEmpty() ? QStringLiteral("Keine POI-Dateien (.ov2, .asc) in %1").arg(poiPath)
                                       : poiPath);

    m_bFilling = true;
    m_pFiles->clear();
    CRegistryKey list(PoiSettings::kFilesKey);
    for (const QString& name : names) {
        auto* item = new QListWidgetItem(name, m_pFiles);
        item->setFlags(Qt::ItemIsEnabled); // switched by a tap on the whole row (below), not the box alone
        item->setSizeHint(QSize(0, kRowHeight));
        bool enabled = false;
        list.ReadFlag(name, enabled);
        item->setCheckState(enabled ? Qt::Checked : Qt::Unchecked);
        const QImage icon = LoadPoiIcon(PoiFile{name, folder, {}, enabled, {}}, kIconEdge);
        if (!icon.isNull()) item->setIcon(QIcon(QPixmap::fromImage(icon)));
    }
    m_bFilling = false;
}

void CPOIView::Switch(QListWidgetItem* item) {
    if (m_bFilling) return;
    CRegistryKey(PoiSettings::kFilesKey).WriteFlag(item->text(), item->checkState() == Qt::Checked);
    m_loader.start(); // its wait gathers the taps of a moment into one load
}

void CPOIView::showEvent(QShowEvent* event) {
    CPageView::showEvent(event);
    Refresh(); // files may have come or gone meanwhile
}
