#pragma once

#include "nav/GeoPosition.h"
#include "nav/goto/ApproachBeep.h"
#include "nav/goto/TypedTarget.h"
#include "shell/ui/CPageView.h"

#include <QDateTime>
#include <functional>
#include <optional>

class CGoToTarget;
class CWaypointList;
class FittedLabel;
class GoToArrow;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class SoundOutput;

// What the GoTo page reads of the GPS state.
struct GoToFix {
    bool m_bValid = false;
    double m_dLon = 0, m_dLat = 0; // degrees
    double m_dSpeedKmh = 0;
    double m_dHeadingDeg = 0;
    double m_dAltitude = 0;           // metres
    bool m_bNavigationSource = false; // the position comes from the navigation program
};

// The GoTo page ("GoTo Seite"): distance, course, speed, heading and time to the target with an
// arrow, approach beeps, the target typed in the notation of "PosFormat" (only that notation's fields
// enabled), and the waypoint list with its file.
class CGoToView : public CPageView {
    Q_OBJECT
public:
    // What the page uses of the rest of the program; the dialogs are replaceable for tests.
    struct Services {
        std::function<GoToFix()> fix;
        std::function<QDateTime()> localNow;
        SoundOutput* pSound = nullptr; // the tone generator; none: silent
        std::function<void()> showMap; // "Zeige Position in Karte"
        // A file to open (bSave false) or to write; empty when cancelled.
        std::function<QString(const QString& title, const QString& start, const QString& filter, bool bSave)>
            chooseFile;
        std::function<bool(const QString& question)> ask; // Yes/No
        // "Setze MN Ziel ": the target (degrees, longitude first) to the navigation program.
        std::function<void(double lon, double lat, const QString& name)> setNavigationTarget;
        // The navigation program's map centre and the place last clicked in it; nothing while unknown.
        std::function<std::optional<GeoPosition>()> navMapCentre;
        std::function<std::optional<GeoPosition>()> navLastClick;
    };

    CGoToView(CGoToTarget& target, CWaypointList& waypoints, const QString& waypointFile, Services services,
              QWidget* parent = nullptr);

    void OnUpdate(uint16_t hint) override;

    // The shared target (Part of every page that reads it): longitude, latitude in degrees.
    void SetTarget(double dLon, double dLat, const QString& strName);
    bool GetTarget(double& dLon, double& dLat) const;

    // The page commands, as the menu runs them.
    void TakeGpsPosition();
    void TakeNavMapCentre();
    void TakeNavLastClick();
    void CalculateTarget();
    void ChangeWaypointFile();
    void SaveWaypoint();
    void DeleteWaypoint();
    void PreviousWaypoint();
    void NextWaypoint();
    void ImportWaypoints();
    void ExportWaypoints();
    void ConfigureBeep();
    QAction* Command(const QString& text) const; // the menu entry of that text

    // The displayed texts and arrow, for tests and screenshots.
    QString FieldText(int field) const;
    std::optional<double> ArrowAngle() const;
    // The last beep sequence played (frequency, duration, tone count); reset by nobody.
    std::optional<ApproachBeep> LastBeep() const { return m_lastBeep; }
    QLineEdit* CoordinateField(const char* objectName) const;

private:
    void BuildMenu();
    void ShowTargetInFields();
    void TypedTargetEdited();
    void SelectWaypoint(int row);
    void RefreshList();
    void UpdateCommandStates();
    void ApplyFormat();
    void Beep(double distanceKm, double courseDeg, double headingDeg);
    void ShowNotice(const QString& text);

    CGoToTarget& m_target;
    CWaypointList& m_waypoints;
    Services m_services;
    PosFormat m_format = PosFormat::DegreesMinutes;
    bool m_bToNorth = true;
    bool m_bBeep = false;
    int m_nBeepVolume = 0;
    bool m_bBeepMuted = false;
    bool m_bTargetFromList = false;
    bool m_bTyping = false;
    CBeepCounter m_beepCounter;
    std::optional<ApproachBeep> m_lastBeep;

    FittedLabel* m_pField[3];
    GoToArrow* m_pArrow;
    QLabel* m_pCurrent;
    QLineEdit* m_pName;
    QLineEdit* m_pLat;
    QLineEdit* m_pLon;
    QLineEdit* m_pZone;
    QLineEdit* m_pHemisphere;
    QLineEdit* m_pEasting;
    QLineEdit* m_pNorthing;
    QLineEdit* m_pMgrs;
    QCheckBox* m_pShowCurrent;
    QListWidget* m_pList;
    QLabel* m_pNotice;
    QMenu* m_pMenu;
};
