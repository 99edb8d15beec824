#include "integrations/ui/CInfoButton.h"
#include "integrations/ui/CModuleCustom.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

const QByteArray kPage =
    "[Global]\nName=Test\nBGColor=Color(0,0,0)\n[Buttons]\nLabel\nGo\nSwitch\nQuiet\nBroken\nOnce\n"
    "Every2\n"
    "[Label]\nType=0\nPos=RECT(-100,10,0,40)\nText=%BatPerc% %\n"
    "[Go]\nType=1\nPos=RECT(0,50,100,90)\nText=Sat\nAction=Satelliten\n"
    "[Switch_0]\nType=2\nPos=RECT(0,100,100,140)\nText=off\nAction=light\n"
    "[Switch_1]\nType=2\nPos=RECT(0,100,100,140)\nText=on\n"
    "[Quiet]\nType=1\nPassive=1\nPos=RECT(0,150,100,190)\nAction=never\n"
    "[Broken]\nPos=RECT(0,0,10,10)\n"
    "[Once]\nType=0\nRefresh=0\nText=%BatPerc%\n"
    "[Every2]\nType=0\nRefresh=2\nText=%BatPerc%\n";

class CustomPage : public ::testing::Test {
protected:
    void SetUp() override {
        page.resize(240, 320);
        page.show();
        ASSERT_TRUE(page.LoadPage(writeFile(root.file("Tarvik/test.ini"), kPage)));
    }

    const bool bApplication = (ensureApplication(), true); // before the page
    TestRoot root;
    TemplateSources sources{nullptr, nullptr, nullptr, nullptr, 42, 0};
    QStringList actions;
    CModuleCustom page{[this] { return sources; }, [this](const QString& action) { actions << action; }};

    QString text(size_t index) const { return page.Elements()[index]->Text(); }
};

TEST_F(CustomPage, BuildsTheElementsOfTheFile) {
    EXPECT_EQ(page.Name(), "Test");
    ASSERT_EQ(page.Elements().size(), 7u);
    EXPECT_EQ(page.Elements()[4], nullptr) << "an element without a Type has no window";
    EXPECT_EQ(page.Elements()[0]->geometry(), QRect(140, 10, 100, 30));
    EXPECT_EQ(text(0), "42 %");
    EXPECT_TRUE(qobject_cast<CInfoButton*>(page.Elements()[1]));
    EXPECT_FALSE(qobject_cast<CInfoButton*>(page.Elements()[0]));
    page.resize(800, 480);
    EXPECT_EQ(page.Elements()[0]->geometry(), QRect(700, 10, 100, 30)) << "placed again for the new size";
    EXPECT_FALSE(page.LoadPage(root.file("Tarvik/none.ini")));
    EXPECT_TRUE(page.Elements().empty());
}

TEST_F(CustomPage, RunsActionsAndSwitchesStates) {
    QTest::mouseClick(page.Elements()[1], Qt::LeftButton);
    EXPECT_EQ(actions, QStringList({"Satelliten"}));
    page.Tap(3);
    EXPECT_EQ(actions.size(), 1) << "a passive button ignores taps";
    page.Tap(0);
    EXPECT_EQ(actions.size(), 1) << "a display element runs nothing";

    const struct {
        uint8_t state;
        const char* text;
    } expected[] = {{1, "on"}, {0, "off"}, {1, "on"}};
    for (const auto& step : expected) {
        page.Tap(2);
        QCoreApplication::processEvents();
        EXPECT_EQ(page.ElementState(2), step.state);
        EXPECT_EQ(text(2).toStdString(), step.text);
    }
    EXPECT_EQ(actions, QStringList({"Satelliten", "light", "light"}))
        << "the state that was tapped runs its action";
}

TEST_F(CustomPage, RefreshesAsTheElementsAsk) {
    const struct {
        int battery;
        const char* every;
        const char* once;
        const char* second;
    } updates[] = {
        {50, "50", "42", "42"}, {60, "60", "42", "60"}, {70, "70", "42", "60"}, {80, "80", "42", "80"}};
    for (const auto& update : updates) {
        sources.nBatteryPercent = update.battery;
        page.OnUpdate(0);
        EXPECT_EQ(text(0).toStdString(), std::string(update.every) + " %");
        EXPECT_EQ(text(5).toStdString(), update.once);
        EXPECT_EQ(text(6).toStdString(), update.second);
    }
}

} // namespace
