#include <gtest/gtest.h>

#include <QAccessible>
#include <QDesktopServices>
#include <QTest>

#include "app/ElementScene.h"
#include "app/StoreScene.h"
#include "app/presentation/CreditsPresenter.h"
#include "platform/GroupedNumber.h"

namespace ornivo::testing {
namespace {

const QString accent = "#c8f060";
const QString subtext = "#8c8c8c";
const QString warning = "#f2bf40";

const QString intro =
    "Ornivo learned to recognise birds from photographs shared under open licences by naturalists "
    "around the world. It could not exist without them.";
const QString pending =
    "The per-photographer roster has not been folded into this build yet. Sources and licences "
    "above are accurate; individual names are pending.";

/// Takes what would be opened in a browser.
class Browser : public QObject {
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler("https", this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler("https"); }

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened.append(url.toString()); }
};

Credits::Payload complete() {
    Credits::Payload payload;
    payload.rosterStatus = "complete";
    payload.training.note = "A note.";
    payload.training.sources = {
        {"a", "Many", "Holder A", "https://example.org/a", 12, {{"CC0", 5}, {"CC BY", 7}}},
        {"b", "None", "Holder B", "", 0, {}}};
    payload.components = {
        {"Library", "reads files", "Holder", "MIT", "Cite it so", "https://example.org/l"}};
    payload.photographers = {"Ada Lovelace", "Bea", "Adam"};
    payload.gbifCitation = {" 10.15468/dd.abc ", "Cite the data."};
    return payload;
}

class CreditsView : public ::testing::Test {
protected:
    ElementScene& screen() {
        if (screen_) return *screen_;
        presenter_ = std::make_unique<app::CreditsPresenter>(payload_);
        screen_ = std::make_unique<ElementScene>(
            "CreditsView { credits: host.credits; onClosed: host.title = \"closed\" }",
            QVariantMap{{"credits", QVariant::fromValue(presenter_.get())}});
        return *screen_;
    }

    std::optional<Credits::Payload> payload_ = complete();
    Browser browser_;

private:
    std::unique_ptr<app::CreditsPresenter> presenter_;
    std::unique_ptr<ElementScene> screen_;
};

QString countShown(int people) {
    return QString::fromStdString(groupedNumber(people)) +
           QString::fromUtf8(" shown — scroll, or search to find someone.");
}

}  // namespace

TEST_F(CreditsView, ShowsEverythingInItsOrder) {
    EXPECT_EQ(screen().shown(), (QStringList{"Credits",
                                             "Done",
                                             "The photographs",
                                             intro,
                                             "[photo-stack]",
                                             "Many",
                                             QString::fromUtf8("12 photographs · CC BY, CC0"),
                                             "[photo-stack]",
                                             "None",
                                             "Holder B",
                                             "A note.",
                                             "Photographers (3)",
                                             "Search names",
                                             "Ada Lovelace",
                                             "Bea",
                                             "Adam",
                                             countShown(3),
                                             "Built with",
                                             "[shipping-box]",
                                             "Library",
                                             QString::fromUtf8("· MIT"),
                                             "reads files",
                                             "Citation",
                                             "Cite the data.",
                                             "10.15468/dd.abc"}));
    EXPECT_EQ(screen().colourOf("[photo-stack]"), accent);
    EXPECT_EQ(screen().colourOf("[shipping-box]"), accent);
    EXPECT_EQ(screen().colourOf("Many"), "#ffffff");
    for (const QString& text :
         {QString("Holder B"), QString("A note."), QString("reads files"),
          QString("Cite the data."), QString::fromUtf8("· MIT"), countShown(3)}) {
        EXPECT_EQ(screen().colourOf(text), subtext) << text.toStdString();
    }
    EXPECT_EQ(screen().item("names")->height(), 260);
    screen().picture("credits-roster");
}

TEST_F(CreditsView, AnIncompleteRosterIsPending) {
    struct Case {
        const char* status;
        std::vector<std::string> photographers;
    };
    for (const Case& row : {Case{"pending", {"Ada"}}, Case{"complete", {}}}) {
        payload_->rosterStatus = row.status;
        payload_->photographers = row.photographers;
        app::CreditsPresenter presenter(payload_);
        ElementScene scene("CreditsView { credits: host.credits }",
                           {{"credits", QVariant::fromValue(&presenter)}});
        EXPECT_EQ(scene.shownIn("rosterPending"), (QStringList{"[warning-triangle]", pending}));
        EXPECT_EQ(scene.colourOf("[warning-triangle]"), warning);
        EXPECT_TRUE(scene.shows("Photographers"));
        EXPECT_FALSE(scene.shows("Search names"));
        EXPECT_FALSE(scene.shows("Ada"));
    }
}

TEST_F(CreditsView, WithoutTheFileShowsTheFixedTexts) {
    payload_.reset();
    EXPECT_EQ(screen().shown(),
              (QStringList{"Credits", "Done", "The photographs", intro, "Photographers",
                           "[warning-triangle]", pending, "Built with", "Citation"}));
    screen().picture("credits-missing");
}

TEST_F(CreditsView, ANameIsSearchedFor) {
    screen().type("Search names", "ADA");
    EXPECT_EQ(screen().shownIn("names"), (QStringList{"Ada Lovelace", "Adam"}));
    EXPECT_TRUE(screen().shows(countShown(2)));
    screen().type("Search names", "xx");
    EXPECT_FALSE(screen().item("names")->isVisible());
    EXPECT_EQ(screen().shownIn("nobody"), QStringList("No one by that name in the roster."));
    EXPECT_EQ(screen().shownIn("countShown"), QStringList());
}

TEST_F(CreditsView, ASearchOfBlanksShowsEveryone) {
    screen().type("Search names", "  ");
    EXPECT_TRUE(screen().shows(countShown(3)));
}

TEST_F(CreditsView, RowsOpenTheirAddresses) {
    screen().press("Many");
    screen().press("Library");
    screen().press("10.15468/dd.abc");
    EXPECT_EQ(browser_.opened, (QStringList{"https://example.org/a", "https://example.org/l",
                                            "https://doi.org/10.15468/dd.abc"}));
    EXPECT_EQ(screen().colourOf("10.15468/dd.abc"), accent);
}

TEST_F(CreditsView, ARowWithoutAnAddressIsPlainText) {
    QQuickItem* const row = screen().control("None");
    EXPECT_FALSE(row->isEnabled());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row)->role(), QAccessible::StaticText);
    EXPECT_EQ(accessibleDescription(row), "Holder B");
    screen().press("None");
    EXPECT_EQ(browser_.opened, QStringList());
}

TEST_F(CreditsView, BlanksAreNoDOI) {
    payload_->gbifCitation.doi = "  ";
    EXPECT_FALSE(screen().item("doi")->isVisible());
}

TEST_F(CreditsView, TheKeyboardReachesEverythingInTheOrderOfReading) {
    EXPECT_EQ(screen().tabOrder(), (QStringList{"Done", "Many", "Search names", "Photographers (3)",
                                                "Library", "10.15468/dd.abc"}));
}

TEST_F(CreditsView, ALongRosterIsScrolledWithTheKeys) {
    payload_->photographers.clear();
    for (int i = 0; i < 100000; ++i) {
        payload_->photographers.push_back("Name " + std::to_string(i));
    }
    QQuickItem* const names = screen().control("Photographers (100000)");
    ASSERT_TRUE(names);
    names->forceActiveFocus();
    screen().key(Qt::Key_End);
    QTest::qWait(50);
    EXPECT_TRUE(screen().shownIn("names").contains("Name 99999"));
    screen().picture("credits-roster-long");
    screen().key(Qt::Key_Home);
    QTest::qWait(50);
    EXPECT_TRUE(screen().shownIn("names").contains("Name 0"));
}

TEST_F(CreditsView, DoneClosesIt) {
    screen().press("Done");
    EXPECT_TRUE(waitUntil([&] { return screen().window().title() == "closed"; }));
}

TEST(Credits, ThoseThatShipWithTheProgramShow) {
    ElementScene scene("CreditsView {}", {});
    EXPECT_TRUE(scene.shows("ONNX Runtime"));
    scene.picture("credits");
}

}  // namespace ornivo::testing

#include "CreditsViewTest.moc"
