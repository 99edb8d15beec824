#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

// Commands of the page table that the page shown carries out itself.
enum class PageCommand {
    FollowPosition,  // "Verfolge aktuelle Position"
    ExtendedMenuBar, // "Erweiterte Menübar": the page's own menu
};

// A full-window page of the main frame. The frame calls OnUpdate after the document announced a
// change; `hint` is the OR of the GpsChange codes of that change.
class CPageView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    virtual void OnUpdate(uint16_t hint) = 0;
    // Every received sentence while the page is shown (nullptr: the source restarts); pages that
    // show the raw data take it.
    virtual void OnRawSentence(const char* /*pLine*/, int /*nLength*/) {}
    // False when the page has nothing to do for the command.
    virtual bool OnCommand(PageCommand /*command*/) { return false; }
    // The window title while the page is shown; empty: "Tarvik " and the page name.
    virtual QString PageTitle() const { return QString(); }
    // Memory runs short and the page is hidden: it lets go of what it can make again.
    virtual void DropCachedData() {}

Q_SIGNALS:
    void titleChanged();
    // The page could not get memory: the frame frees what it can.
    void memoryWanted();
};
