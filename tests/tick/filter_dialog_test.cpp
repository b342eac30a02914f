// The filter dialog, driven by mouse and keys.

#include "FilterDialogFixture.h"

#include "TickPanels.h"

#include "platform/toolkit/CPushButton.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CEntrustTitleWidget.h"

#include <QPointer>

using namespace testing_support;
using namespace Kel;

TEST_F(FilterDialog, TheVolumeComparisonGoesRoundInThree)
{
    dialog.show();
    const std::pair<const char*, int> steps[] = {{"＞", 1}, {"=", 2}, {"≥", 0}, {"＞", 1}};
    for (const auto& [text, value] : steps) {
        click(dialog.m_com1Button);
        EXPECT_EQ(dialog.m_com1Button->text(), QString::fromUtf8(text));
        EXPECT_EQ(dialog.m_param.com1, value);
    }
}

TEST_F(FilterDialog, TheAmountComparisonKnowsTwoAndNeverBecomesTwo)
{
    dialog.show();
    const std::pair<const char*, int> steps[] = {{"＞", 1}, {"≥", 0}, {"＞", 1}};
    for (const auto& [text, value] : steps) {
        click(dialog.m_com2Button);
        EXPECT_EQ(dialog.m_com2Button->text(), QString::fromUtf8(text));
        EXPECT_EQ(dialog.m_param.com2, value);
    }
    dialog.m_com2Button->setText(QStringLiteral("="));
    click(dialog.m_com2Button);
    EXPECT_EQ(dialog.m_com2Button->text(), QStringLiteral("≥"));
    EXPECT_EQ(dialog.m_param.com2, 0);
}

TEST_F(FilterDialog, TheRelationTogglesBetweenOrAndAnd)
{
    dialog.show();
    click(dialog.m_relateButton);
    EXPECT_EQ(dialog.m_relateButton->text(), QStringLiteral("且"));
    EXPECT_EQ(dialog.m_param.relate, 1);
    click(dialog.m_relateButton);
    EXPECT_EQ(dialog.m_relateButton->text(), QStringLiteral("或"));
    EXPECT_EQ(dialog.m_param.relate, 0);
}

TEST_F(FilterDialog, EditorsBoxesAndColoursGoIntoTheRecord)
{
    dialog.show();
    type(dialog.m_markEdit, "123");
    type(dialog.m_volumeEdit, "45");
    type(dialog.m_amountEdit, "2147483647");
    EXPECT_EQ(dialog.m_param.mark, 123);
    EXPECT_EQ(dialog.m_param.volume, 45);
    EXPECT_EQ(dialog.m_param.amount, 2147483647);
    turn(dialog.m_sellCheck);
    turn(dialog.m_unbuyCheck);
    EXPECT_TRUE(dialog.m_param.buy);
    EXPECT_FALSE(dialog.m_param.sell);
    EXPECT_FALSE(dialog.m_param.unbuy);
    EXPECT_TRUE(dialog.m_param.unsell);
    turn(dialog.m_buyCheck);
    turn(dialog.m_unsellCheck);
    EXPECT_FALSE(dialog.m_param.buy);
    EXPECT_FALSE(dialog.m_param.unsell);
    dialog.m_colorCombo->setFocus();
    QTest::keyClick(dialog.m_colorCombo, Qt::Key_Down);
    QTest::keyClick(dialog.m_colorCombo, Qt::Key_Down);
    EXPECT_EQ(dialog.m_param.color, 2);
}

TEST_F(FilterDialog, ValidatorsStopWhatIsNoNumberOrTooLarge)
{
    dialog.show();
    type(dialog.m_markEdit, "-1x2000000");
    EXPECT_EQ(dialog.m_markEdit->text(), QStringLiteral("120000"));
    EXPECT_EQ(dialog.m_param.mark, 120000);
    type(dialog.m_volumeEdit, "1000000");
    EXPECT_EQ(dialog.m_param.volume, 1000000);
    type(dialog.m_volumeEdit, "1000001");
    EXPECT_EQ(dialog.m_param.volume, 100000);
    type(dialog.m_markEdit, "1000000");
    EXPECT_EQ(dialog.m_param.mark, 1000000);
    type(dialog.m_markEdit, "1000001");
    EXPECT_EQ(dialog.m_param.mark, 100000);
    type(dialog.m_amountEdit, "2147483648");
    EXPECT_EQ(dialog.m_param.amount, 214748364);
}

TEST_F(FilterDialog, TextThatIsNoNumberReadsAsZero)
{
    dialog.m_param.volume = 7;
    dialog.m_volumeEdit->setText(QStringLiteral("12a"));
    EXPECT_TRUE(dialog.handleEvent(100, eVolumeControl, 0, QString(), nullptr));
    EXPECT_EQ(dialog.m_param.volume, 0);
    dialog.saveParam();
    EXPECT_NE(dialog.m_paramJson.find("\"volume\" : 0,"), std::string::npos) << dialog.m_paramJson;
}

TEST_F(FilterDialog, AProgrammaticChangeIsSilent)
{
    dialog.m_markEdit->setText(QStringLiteral("7"));
    dialog.m_colorCombo->setCurrentIndex(3);
    dialog.m_buyCheck->setChecked(false);
    EXPECT_EQ(dialog.m_param.mark, 0);
    EXPECT_EQ(dialog.m_param.color, 0);
    EXPECT_TRUE(dialog.m_param.buy);
}

TEST_F(FilterDialog, TheTimeRangeReachesTheRecordByGetFilterParamAlone)
{
    EXPECT_EQ(dialog.m_param.start, 32400000);
    dialog.m_startEdit->setTime(QTime(9, 30, 5));
    dialog.m_endEdit->setTime(QTime(14, 0, 0));
    EXPECT_EQ(dialog.m_param.start, 32400000);
    const SDepthFilterParam& param = dialog.getFilterParam();
    EXPECT_EQ(param.start, ((9 * 60 + 30) * 60 + 5) * 1000);
    EXPECT_EQ(param.end, 14 * 3600 * 1000);
    EXPECT_EQ(&param, &dialog.m_param);
}

TEST_F(FilterDialog, AFirstConfirmationNarrowsTheTimeRangeToThatOfTheEditors)
{
    confirm();
    EXPECT_EQ(dialog.getFilterParam().start, 33300000);
    EXPECT_EQ(dialog.getFilterParam().end, 56400000);
}

TEST_F(FilterDialog, ConfirmEndsWithOneAndSavesOnce)
{
    QSignalSpy finished(&dialog, &QDialog::finished);
    confirm();
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(finished.count(), 1);
    EXPECT_FALSE(dialog.m_paramJson.empty());
    std::string saved;
    QObject::connect(&dialog, &QDialog::finished, [&] { saved.swap(dialog.m_paramJson); });
    for (const bool byKey : {false, true}) {
        dialog.show();
        if (byKey)
            QTest::keyClick(dialog.m_volumeEdit, Qt::Key_Return);
        else
            click(dialog.button(eConfirmControl));
        EXPECT_FALSE(saved.empty());
        EXPECT_TRUE(dialog.m_paramJson.empty()) << "nothing saves once the dialog has ended";
        saved.clear();
    }
}

TEST_F(FilterDialog, EveryWayToCancelRestoresOnce)
{
    dialog.show();
    type(dialog.m_markEdit, "5");
    confirm();
    for (int way = 0; way < 4; ++way) {
        dialog.show();
        QSignalSpy changed(dialog.m_markEdit, &QLineEdit::textChanged);
        if (way == 0)
            click(dialog.button(eCancelControl));
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else if (way == 2)
            dialog.close();
        else
            click(dialog.closeButton());
        EXPECT_FALSE(dialog.isVisible()) << way;
        EXPECT_EQ(changed.count(), 2) << way << ": emptied, and written";
    }
}

TEST_F(FilterDialog, TheJsonTextHoldsTheControls)
{
    dialog.show();
    type(dialog.m_markEdit, "12");
    click(dialog.m_com1Button);
    click(dialog.m_relateButton);
    turn(dialog.m_unbuyCheck);
    confirm();
    EXPECT_EQ(dialog.m_paramJson, "{ \"mark\" : 12, \"color\" : 0, \"com1\" : \"＞\", \"volume\" : 0, "
                                  "\"relate\" : \"且\", \"com2\" : \"≥\", \"amount\" : 0, "
                                  "\"start\" : 33300000, \"end\" : 56400000, \"buy\" : true, "
                                  "\"sell\" : true, \"unbuy\" : false, \"unsell\" : true }");
}

TEST_F(FilterDialog, TheJsonTextOfADealDialogHasNoOrderTypes)
{
    deals.show();
    click(deals.button(eConfirmControl));
    EXPECT_EQ(deals.m_paramJson, "{ \"mark\" : 0, \"color\" : 0, \"com1\" : \"≥\", \"volume\" : 0, "
                                 "\"relate\" : \"或\", \"com2\" : \"≥\", \"amount\" : 0, "
                                 "\"start\" : 33300000, \"end\" : 56400000 }");
    const SDepthFilterParam& param = deals.getFilterParam();
    EXPECT_TRUE(param.buy && param.sell && param.unbuy && param.unsell);
}

TEST_F(FilterDialog, CancelBeforeAnyConfirmationRestoresNothing)
{
    dialog.show();
    type(dialog.m_markEdit, "12");
    click(dialog.m_com1Button);
    cancel();
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(dialog.m_markEdit->text(), QStringLiteral("12"));
    EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("＞"));
    EXPECT_EQ(dialog.m_param.mark, 12);
    EXPECT_EQ(dialog.m_param.com1, 1);
}

TEST_F(FilterDialog, CancelAfterAToggleRestoresTheTextButLeavesTheRecord)
{
    confirm();
    dialog.show();
    click(dialog.m_com1Button);
    type(dialog.m_volumeEdit, "9");
    turn(dialog.m_buyCheck);
    cancel();
    EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("≥"));
    EXPECT_EQ(dialog.m_param.com1, 1);
    EXPECT_EQ(dialog.m_volumeEdit->text(), QStringLiteral("0"));
    EXPECT_EQ(dialog.m_param.volume, 9);
    EXPECT_TRUE(dialog.m_buyCheck->isChecked());
    EXPECT_FALSE(dialog.m_param.buy);
    // A later confirmation saves what is shown while the record holds the other comparison.
    confirm();
    EXPECT_NE(dialog.m_paramJson.find("\"com1\" : \"≥\""), std::string::npos);
    EXPECT_EQ(dialog.getFilterParam().com1, 1);
}

TEST_F(FilterDialog, CancelRestoresTheConfirmedTimeRangeForTheRecordAsWell)
{
    dialog.m_startEdit->setTime(QTime(10, 0, 0));
    confirm();
    dialog.show();
    dialog.m_startEdit->setTime(QTime(11, 0, 0));
    cancel();
    EXPECT_EQ(dialog.m_startEdit->time(), QTime(10, 0, 0));
    EXPECT_EQ(dialog.getFilterParam().start, 36000000);
}

TEST_F(FilterDialog, CancelRestoresEveryControlOfTheConfirmation)
{
    dialog.show();
    type(dialog.m_markEdit, "12");
    dialog.m_colorCombo->setCurrentIndex(3);
    click(dialog.m_com1Button);
    click(dialog.m_com1Button);
    type(dialog.m_volumeEdit, "34");
    click(dialog.m_relateButton);
    click(dialog.m_com2Button);
    type(dialog.m_amountEdit, "56");
    dialog.m_endEdit->setTime(QTime(14, 30, 1));
    turn(dialog.m_unsellCheck);
    confirm();
    dialog.show();
    dialog.clear();
    cancel();
    EXPECT_EQ(dialog.m_markEdit->text(), QStringLiteral("12"));
    EXPECT_EQ(dialog.m_colorCombo->currentIndex(), 3);
    EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("="));
    EXPECT_EQ(dialog.m_volumeEdit->text(), QStringLiteral("34"));
    EXPECT_EQ(dialog.m_relateButton->text(), QStringLiteral("且"));
    EXPECT_EQ(dialog.m_com2Button->text(), QStringLiteral("＞"));
    EXPECT_EQ(dialog.m_amountEdit->text(), QStringLiteral("56"));
    EXPECT_EQ(dialog.m_endEdit->time(), QTime(14, 30, 1));
    EXPECT_FALSE(dialog.m_unsellCheck->isChecked());
    EXPECT_TRUE(dialog.m_buyCheck->isChecked());
}

TEST_F(FilterDialog, AnEmptyMarkIsSavedAndComesBackAsZero)
{
    dialog.show();
    type(dialog.m_markEdit, "");
    EXPECT_EQ(dialog.m_param.mark, 0);
    confirm();
    EXPECT_NE(dialog.m_paramJson.find("\"mark\" : 0"), std::string::npos);
    cancel();
    EXPECT_EQ(dialog.m_markEdit->text(), QStringLiteral("0"));
}

TEST_F(FilterDialog, ClearPutsControlsAtTheirStartAndLeavesTheRecord)
{
    dialog.show();
    type(dialog.m_markEdit, "12");
    click(dialog.m_com1Button);
    turn(dialog.m_buyCheck);
    dialog.m_startEdit->setTime(QTime(11, 0, 0));
    dialog.clear();
    EXPECT_EQ(dialog.m_markEdit->text(), QString());
    EXPECT_EQ(dialog.m_volumeEdit->text(), QStringLiteral("0"));
    EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("≥"));
    EXPECT_TRUE(dialog.m_buyCheck->isChecked());
    EXPECT_EQ(dialog.m_startEdit->time(), QTime(9, 15, 0));
    EXPECT_EQ(dialog.m_param.mark, 12);
    EXPECT_EQ(dialog.m_param.com1, 1);
    EXPECT_FALSE(dialog.m_param.buy);
}

TEST_F(FilterDialog, AMissingKeyLeavesItsControlAsClearDoes)
{
    confirm();
    dialog.m_paramJson = "{ \"volume\" : 5 }";
    dialog.m_markEdit->setText(QStringLiteral("9"));
    dialog.m_buyCheck->setChecked(false);
    dialog.setParam();
    EXPECT_EQ(dialog.m_markEdit->text(), QString());
    EXPECT_EQ(dialog.m_volumeEdit->text(), QStringLiteral("5"));
    EXPECT_TRUE(dialog.m_buyCheck->isChecked());
}

TEST_F(FilterDialog, EscapeCloseAndTheFramesButtonCancel)
{
    confirm();
    for (int way = 0; way < 3; ++way) {
        dialog.show();
        QSignalSpy finished(&dialog, &QDialog::finished);
        click(dialog.m_com1Button);
        if (way == 0)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else if (way == 1)
            dialog.close();
        else
            click(dialog.closeButton());
        EXPECT_FALSE(dialog.isVisible()) << way;
        EXPECT_EQ(dialog.result(), 0) << way;
        EXPECT_EQ(finished.count(), 1) << way;
        EXPECT_EQ(dialog.m_com1Button->text(), QStringLiteral("≥")) << way;
    }
}

TEST_F(FilterDialog, TheReturnKeyConfirms)
{
    dialog.show();
    dialog.m_volumeEdit->setFocus();
    QTest::keyClick(dialog.m_volumeEdit, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_FALSE(dialog.m_paramJson.empty());
}

TEST_F(FilterDialog, HandledEventsAreTakenAndOthersAreNot)
{
    dialog.show();
    for (const int id : {2, 4, 5})
        EXPECT_TRUE(dialog.handleEvent(5, id, 0, QString(), nullptr)) << id;
    for (const int id : {7, 8, 9, 10})
        EXPECT_TRUE(dialog.handleEvent(67, id, 0, QString(), nullptr)) << id;
    EXPECT_TRUE(dialog.handleEvent(70, 1, 0, QString(), nullptr));
    for (const int id : {0, 3, 6})
        EXPECT_TRUE(dialog.handleEvent(100, id, 0, QString(), nullptr)) << id;
    EXPECT_FALSE(dialog.handleEvent(67, 6, 0, QString(), nullptr));
    EXPECT_FALSE(dialog.handleEvent(70, 0, 0, QString(), nullptr));
    EXPECT_FALSE(dialog.handleEvent(100, 1, 0, QString(), nullptr));
    EXPECT_FALSE(dialog.handleEvent(5, 99, 0, QString(), nullptr));
    EXPECT_FALSE(dialog.handleEvent(1396, 2, 0, QString(), nullptr));
    EXPECT_TRUE(dialog.handleEvent(5, 101, 0, QString(), nullptr));
}

TEST_F(FilterDialog, EventsOfItsControlsNeverReachThePanelBelow)
{
    DealPanel panel;
    OpenDialog below(eDepthFilterTransaction, &panel);
    below.show();
    click(below.m_com1Button);
    click(below.closeButton());
    EXPECT_TRUE(panel.sink.events.empty());
}

TEST_F(FilterDialog, ADealDialogTakesNoOrderTypes)
{
    EXPECT_TRUE(deals.handleEvent(67, 7, 0, QString(), nullptr));
    EXPECT_TRUE(deals.m_param.buy);
}

TEST(DealFilter, AConfirmedFilterNarrowsTheList)
{
    DealPanel panel;
    panel.fill(20);
    const auto pressConfirm = [&](bool edit) {
        QTimer::singleShot(0, &panel, [&panel, edit] {
            auto* const dialog = panel.findChild<CDepthFilterSettingDialog*>();
            ASSERT_NE(dialog, nullptr);
            const auto click = [&](int id) {
                QTest::mouseClick(controlIn<Zeb::CMediumNormalButton>(*dialog, id), Qt::LeftButton);
            };
            if (!edit) {
                click(eCancelControl);
                return;
            }
            auto* const volume = controlIn<Zeb::CLineEdit>(*dialog, eVolumeControl);
            volume->setFocus();
            volume->selectAll();
            QTest::keyClicks(volume, QStringLiteral("15"));
            click(eRelation);
            click(eConfirmControl);
        });
    };
    pressConfirm(false);
    panel.doFilter();
    EXPECT_EQ(panel.m_total, 20);
    EXPECT_EQ(panel.m_filterParam.start, 32400000);
    panel.highlightTransaction(17);
    pressConfirm(false);
    panel.doFilter();
    EXPECT_EQ(panel.m_selectedIndex, 17);
    pressConfirm(true);
    panel.doFilter();
    EXPECT_EQ(panel.m_total, 6);
    EXPECT_EQ(panel.m_selectedIndex, -1) << "another deal has its row now";
    EXPECT_EQ(panel.m_filterParam.start, 33300000);
    EXPECT_TRUE(panel.m_model->dirty);
    EXPECT_EQ(panel.findChildren<CDepthFilterSettingDialog*>().size(), 1);
}

TEST(DealFilter, APanelThatIsDeletedBelowItsOpenDialogEndsTheDialog)
{
    auto* const panel = new DealPanel;
    panel->fill(20);
    const QPointer<QWidget> alive = panel;
    bool wasOpen = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<CDepthFilterSettingDialog> dialog = panel->findChild<CDepthFilterSettingDialog*>();
        wasOpen = dialog != nullptr && dialog->isVisible();
        if (dialog)
            dialog->done(1); // confirmed, and the panel gone before anybody asks for the filter
        delete panel;
    });
    panel->doFilter();
    EXPECT_TRUE(wasOpen);
    EXPECT_TRUE(alive.isNull());
}

TEST(EntrustFilter, APanelThatIsDeletedBelowItsOpenDialogEndsTheDialog)
{
    auto* const panel = new CDepthEntrustWidget;
    panel->resize(900, 300);
    panel->show();
    const QPointer<QWidget> alive = panel;
    bool wasOpen = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<CDepthFilterSettingDialog> dialog = panel->findChild<CDepthFilterSettingDialog*>();
        wasOpen = dialog != nullptr && dialog->isVisible();
        if (dialog)
            dialog->done(1);
        delete panel;
    });
    // As a user does it: the button, the title and the panel are on the way of the event.
    auto* const title = panel->findChild<CEntrustTitleWidget*>();
    QTest::mouseClick(title->findChild<Zeb::CPushButton*>(), Qt::LeftButton);
    EXPECT_TRUE(wasOpen);
    EXPECT_TRUE(alive.isNull());
}
