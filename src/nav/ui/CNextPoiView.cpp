#include "nav/ui/CNextPoiView.h"

#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiName.h"
#include "nav/ui/PoiHitModel.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const QStringList kRadii = {"25 km", "50 km", "100 km", "200 km", "all"};
enum Reference { GpsPosition, GoToTarget, MapCentre };
const QStringList kReferences = {"GPS Position", "GoTo Ziel", "MN Kartenmp."};
constexpr int kRowHeight = 40; // a finger's height

void notice(QWidget* parent, const QString& text) {
    auto* box =
        new QMessageBox(QMessageBox::Information, QStringLiteral("Tarvik"), text, QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

CNextPoiView::CNextPoiView(const PoiLoader& pois, PositionSource gpsPosition, PositionSource goToTarget,
                           QWidget* parent, PositionSource navMapCentre)
    : CPageView(parent), m_pois(pois), m_gpsPosition(std::move(gpsPosition)),
      m_goToTarget(std::move(goToTarget)), m_navMapCentre(std::move(navMapCentre)) {
    m_pRadius = new QComboBox(this);
    m_pRadius->addItems(kRadii);
    m_pReference = new QComboBox(this);
    m_pReference->addItems(kReferences);
    OfferMapCentre();
    auto* search = new QPushButton(QString::fromUtf8("↻"), this); // leaves the choices room on a small screen
    search->setToolTip(QStringLiteral("Suchen"));
    search->setMinimumWidth(48);
    for (QWidget* control : {static_cast<QWidget*>(m_pRadius), static_cast<QWidget*>(m_pReference),
                             static_cast<QWidget*>(search)})
        control->setMinimumHeight(44);
    m_pCount = new QLabel(this);

    m_pModel = new PoiHitModel(this);
    m_pTable = new QTableView(this);
    m_pTable->setModel(m_pModel);
    m_pTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTable->verticalHeader()->hide();
    m_pTable->verticalHeader()->setDefaultSectionSize(kRowHeight);
    m_pTable->horizontalHeader()->setMinimumHeight(kRowHeight);
    m_pTable->horizontalHeader()->setSectionsClickable(true);
    m_pTable->horizontalHeader()->setSortIndicatorShown(true);
    m_pTable->horizontalHeader()->setSectionResizeMode(PoiHitModel::Distance, QHeaderView::ResizeToContents);
    m_pTable->horizontalHeader()->setSectionResizeMode(PoiHitModel::Course, QHeaderView::ResizeToContents);
    m_pTable->horizontalHeader()->setStretchLastSection(true);
    m_pTable->horizontalHeader()->setMinimumSectionSize(24);
    m_pTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long names are cut, not scrolled
    m_pTable->setWordWrap(false);
    QFont listFont = m_pTable->font();
    listFont.setPointSizeF(listFont.pointSizeF() * 1.25);
    m_pTable->setFont(listFont);

    connect(m_pTable->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { SortByColumn(section + 1); });
    connect(m_pTable, &QTableView::clicked, this,
            [this](const QModelIndex& index) { ChooseRow(index.row()); });
    connect(search, &QPushButton::clicked, this, [this] { Search(m_bNamesLoaded); });
    connect(m_pRadius, &QComboBox::activated, this, [this] { Search(m_bNamesLoaded); });
    connect(m_pReference, &QComboBox::activated, this, [this] { Search(m_bNamesLoaded); });
    connect(&m_pois, &PoiLoader::started, this, [this] {
        m_pModel->setHits({});
        m_pCount->clear();
        m_bListMade = false;
    });
    connect(&m_pois, &PoiLoader::loaded, this, &CNextPoiView::SearchWhenPossible);

    auto* choices = new QHBoxLayout;
    choices->addWidget(m_pRadius, 2);
    choices->addWidget(m_pReference, 3);
    choices->addWidget(search);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(choices);
    layout->addWidget(m_pCount);
    layout->addWidget(m_pTable, 1);
    ApplySort();
}

const std::vector<PoiHit>& CNextPoiView::Hits() const {
    return m_pModel->hits();
}

std::optional<GeoPosition> CNextPoiView::Reference() const {
    switch (m_pReference->currentIndex()) {
    case GpsPosition:
        return m_gpsPosition ? m_gpsPosition() : std::nullopt;
    case GoToTarget:
        return m_goToTarget ? m_goToTarget() : std::nullopt;
    case MapCentre:
        return m_navMapCentre ? m_navMapCentre() : std::nullopt;
    default:
        return std::nullopt;
    }
}

bool CNextPoiView::Search(bool bWithNames) {
    const std::optional<GeoPosition> reference = Reference();
    if (!reference || m_pois.isLoading()) {
        notice(this, QString::fromUtf8(kRefusal));
        return false;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::vector<PoiHit> hits = FindNearestPois(m_pois.pois().enabledFiles(), reference->m_dPosLong,
                                               reference->m_dPosLat, m_pRadius->currentText(), bWithNames);
    SortPoiHits(hits, m_nSortKey);
    m_bNamesLoaded = bWithNames;
    m_bListMade = true;
    m_pCount->setText(QStringLiteral("%1 POIs").arg(hits.size()));
    m_pModel->setHits(std::move(hits));
    QApplication::restoreOverrideCursor();
    return true;
}

void CNextPoiView::SortByColumn(int column) {
    if (column == PoiHitModel::Name + 1 && !m_bNamesLoaded) {
        auto* question =
            new QMessageBox(QMessageBox::Question, QStringLiteral("Tarvik"),
                            QString::fromUtf8(kNamesQuestion), QMessageBox::Yes | QMessageBox::No, this);
        question->setAttribute(Qt::WA_DeleteOnClose);
        connect(question, &QMessageBox::finished, this, [this, column](int result) {
            if (result != QMessageBox::Yes) return;
            m_nSortKey = std::abs(m_nSortKey) == column ? -m_nSortKey : column;
            Search(true);
            ApplySort();
        });
        question->open();
        return;
    }
    m_nSortKey = std::abs(m_nSortKey) == column ? -m_nSortKey : column;
    std::vector<PoiHit> hits = m_pModel->hits();
    SortPoiHits(hits, m_nSortKey);
    m_pModel->setHits(std::move(hits));
    ApplySort();
}

void CNextPoiView::ApplySort() {
    m_pTable->horizontalHeader()->setSortIndicator(std::abs(m_nSortKey) - 1,
                                                   m_nSortKey > 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void CNextPoiView::ChooseRow(int row) {
    if (row < 0 || row >= int(Hits().size()) || m_pois.isLoading()) return;
    const PoiHit& hit = Hits()[size_t(row)];
    const PoiEntry& entry = hit.m_pFile->m_entries[size_t(hit.m_nIndex)];
    const QByteArray name = m_bNamesLoaded ? hit.m_name : ReadPoiName(*hit.m_pFile, entry);
    Q_EMIT targetChosen(entry.m_dLon, entry.m_dLat, PoiNameText(name));
}

void CNextPoiView::OnUpdate(uint16_t) {
    if (!m_bListMade) SearchWhenPossible();
}

void CNextPoiView::SearchWhenPossible() {
    if (isVisible() && Reference() && !m_pois.isLoading()) Search(m_bNamesLoaded);
}

void CNextPoiView::OfferMapCentre() {
    auto* items = qobject_cast<QStandardItemModel*>(m_pReference->model());
    if (!items) return;
    const bool bKnown = m_navMapCentre && m_navMapCentre();
    items->item(MapCentre)->setEnabled(bKnown);
    if (!bKnown && m_pReference->currentIndex() == MapCentre) m_pReference->setCurrentIndex(GpsPosition);
}

void CNextPoiView::showEvent(QShowEvent* event) {
    CPageView::showEvent(event);
    OfferMapCentre();
    SearchWhenPossible(); // a fresh list each time the page comes up
}
