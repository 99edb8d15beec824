#pragma once

#include "nav/GeoPosition.h"
#include "nav/poi/NearestPois.h"
#include "shell/ui/CPageView.h"

#include <functional>
#include <optional>

class PoiHitModel;
class PoiLoader;
class QComboBox;
class QLabel;
class QTableView;

// The nearest-POI page: every POI of the enabled files within the chosen radius ("25 km" ... "all")
// of the chosen reference ("GPS Position", "GoTo Ziel", "MN Kartenmp."), listed with distance, course
// and name and sorted by the tapped column. Names are read only when asked for. A tap on a row offers
// that POI as GoTo target.
class CNextPoiView : public CPageView {
    Q_OBJECT
public:
    static constexpr const char* kRefusal =
        "Diese Funktion steht momentan nicht zur Verfügung, da entweder die aktuelle Position nicht bekannt "
        "ist oder die POIs gerade sortiert werden.";
    static constexpr const char* kNamesQuestion = "This operation may take several minutes. \nContinue?";

    // Where the reference points come from; nothing: unknown (or no target set).
    using PositionSource = std::function<std::optional<GeoPosition>()>;
    CNextPoiView(const PoiLoader& pois, PositionSource gpsPosition, PositionSource goToTarget,
                 QWidget* parent = nullptr, PositionSource navMapCentre = {});

    // The list is made on request, not on every fix; only a page still without a list makes it as soon
    // as the reference is known.
    void OnUpdate(uint16_t hint) override;
    // Runs the query for the chosen radius and reference; false (with the refusal shown) while the
    // reference is unknown or the POIs load.
    bool Search(bool bWithNames);
    // A tap on a column header: sort by it, or the other way round when it is the current one. The name
    // column asks first when the names are not loaded, and searches again with names on Yes.
    void SortByColumn(int column);
    int SortKey() const { return m_nSortKey; }
    const std::vector<PoiHit>& Hits() const;

Q_SIGNALS:
    // A tapped row: its POI as GoTo target (lon, lat in degrees). The GoTo page takes it once it exists.
    void targetChosen(double lon, double lat, const QString& name);

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::optional<GeoPosition> Reference() const;
    void ApplySort();
    void ChooseRow(int row);
    void SearchWhenPossible(); // without the refusal
    void OfferMapCentre();     // "MN Kartenmp." only while the navigation program tells its centre

    const PoiLoader& m_pois;
    PositionSource m_gpsPosition;
    PositionSource m_goToTarget;
    PositionSource m_navMapCentre;
    QComboBox* m_pRadius;
    QComboBox* m_pReference;
    QLabel* m_pCount;
    QTableView* m_pTable;
    PoiHitModel* m_pModel;
    int m_nSortKey = 1;
    bool m_bNamesLoaded = false;
    bool m_bListMade = false;
};
