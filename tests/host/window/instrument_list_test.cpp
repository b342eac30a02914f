// The list of instruments.

#include "host/window/InstrumentList.h"

#include "host/window/WindowFixture.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace window_tests {
namespace {

using host::InstrumentModel;

nelservice::CInstrumentDetail detail(const char* code, double close, double tick = 0.01)
{
    nelservice::CInstrumentDetail result;
    result.market = "SH";
    result.code = code;
    result.name = std::string("name ") + code;
    result.previousClose = close;
    result.priceTick = tick;
    return result;
}

host::PriceSeriesPtr prices(double close, std::initializer_list<std::pair<std::int64_t, double>> list)
{
    feed::InstrumentDay day;
    day.detail.previousClose = close;
    for (const auto& [time, price] : list) {
        feed::SnapshotRow row;
        row.time = time;
        row.lastPrice = price;
        day.snapshots.push_back(row);
    }
    return std::make_shared<const host::PriceSeries>(day);
}

class List : public ::testing::Test
{
protected:
    List()
    {
        model.setInstruments({detail("600001", 10), detail("600002", 10), detail("510001", 2, 0.001)});
        model.setPrices(0, prices(10, {{1000, 10.5}, {2000, 9.5}, {3000, 10}}));
    }

    QString text(int row, int column) const { return model.index(row, column).data().toString(); }
    QColor color(int row, int column) const
    {
        return model.index(row, column).data(Qt::ForegroundRole).value<QColor>();
    }
    static QColor theme(const char* key)
    {
        return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
    }

    host::InstrumentList list;
    InstrumentModel& model = list.instruments();
};

TEST_F(List, ShowsCodeNameLastPriceAndChange)
{
    QStringList heads;
    for (int column = 0; column < InstrumentModel::eColumns; ++column)
        heads << model.headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(heads, QStringList({QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("最新"),
                                  QStringLiteral("涨跌幅")}));
    model.setMoment(1500);
    EXPECT_EQ(text(0, InstrumentModel::eCode).toStdString(), "600001");
    EXPECT_EQ(text(0, InstrumentModel::eName).toStdString(), "name 600001");
    EXPECT_EQ(text(0, InstrumentModel::eLastPrice).toStdString(), "10.50");
    EXPECT_EQ(text(0, InstrumentModel::eChange).toStdString(), "+5.00%");
}

TEST_F(List, ColoursAPriceByItsPreviousClose)
{
    struct Row
    {
        std::int64_t moment;
        const char* change;
        const char* color;
    };
    for (const Row& row :
         {Row{1500, "+5.00%", "ic_clr_entrust_text_rise"}, Row{2500, "-5.00%", "ic_clr_entrust_text_fall"},
          Row{3500, "0.00%", "clr_window_text"}}) {
        model.setMoment(row.moment);
        EXPECT_EQ(text(0, InstrumentModel::eChange).toStdString(), row.change);
        EXPECT_EQ(color(0, InstrumentModel::eLastPrice), theme(row.color)) << row.change;
        EXPECT_EQ(color(0, InstrumentModel::eChange), theme(row.color)) << row.change;
    }
}

TEST_F(List, ShowsDashesWithoutAPrice)
{
    EXPECT_EQ(text(0, InstrumentModel::eLastPrice).toStdString(), "--") << "before the first price";
    EXPECT_EQ(text(1, InstrumentModel::eChange).toStdString(), "--") << "prices not loaded";
    model.setPrices(1, prices(0, {{1000, 5}}));
    model.setInstruments({detail("600001", 0)});
    model.setPrices(0, prices(0, {{1000, 5}}));
    model.setMoment(2000);
    EXPECT_EQ(text(0, InstrumentModel::eLastPrice).toStdString(), "5.00");
    EXPECT_EQ(text(0, InstrumentModel::eChange).toStdString(), "--") << "no previous close";
}

TEST_F(List, UsesTheDecimalsOfTheTick)
{
    model.setPrices(2, prices(2, {{1000, 2.001}}));
    model.setMoment(1000);
    EXPECT_EQ(text(2, InstrumentModel::eLastPrice).toStdString(), "2.001");
}

TEST_F(List, TellsOnlyOfRowsThatChange)
{
    model.setMoment(1000);
    QSignalSpy spy(&model, &QAbstractItemModel::dataChanged);
    model.setMoment(1500);
    EXPECT_EQ(spy.count(), 0);
    model.setMoment(2000);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toModelIndex().row(), 0);
    model.setPrices(7, prices(1, {}));
    model.setPrices(-1, prices(1, {}));
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(List, ArrowKeysChooseWhereTheCursorRests)
{
    list.resize(300, 300);
    list.show();
    list.setShown(0);
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(spy.count(), 0) << "still walking";
    ASSERT_TRUE(waitUntil([&] { return spy.count() > 0; }));
    letRun(200);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 2);
    EXPECT_EQ(list.shown(), 2);
}

TEST_F(List, AClickChoosesAndTheShownRowIsNotChosenAgain)
{
    list.resize(300, 300);
    list.show();
    list.setShown(0);
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    const auto click = [&](int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          list.visualRect(model.index(row, 1)).center());
    };
    click(1);
    ASSERT_TRUE(waitUntil([&] { return spy.count() > 0; }));
    EXPECT_EQ(spy.takeFirst()[0].toInt(), 1);
    click(1);
    letRun(250);
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(List, ALoadThatEndsLeavesACursorThatWalksOn)
{
    list.resize(300, 300);
    list.show();
    list.setShown(0);
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    list.setShown(1);
    EXPECT_EQ(list.currentIndex().row(), 2);
    EXPECT_EQ(list.shown(), 1);
    ASSERT_TRUE(waitUntil([&] { return spy.count() > 0; }));
    EXPECT_EQ(spy[0][0].toInt(), 2);
}

TEST_F(List, ARowCanBeClickedAgainWhenNoneIsShown)
{
    list.resize(300, 300);
    list.show();
    list.setShown(1);
    list.setShown(-1);
    EXPECT_FALSE(list.currentIndex().isValid());
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualRect(model.index(1, 1)).center());
    ASSERT_TRUE(waitUntil([&] { return spy.count() > 0; }));
    EXPECT_EQ(spy[0][0].toInt(), 1);
}

TEST_F(List, OtherInstrumentsShowNoneAndEndAWalk)
{
    list.resize(300, 300);
    list.show();
    list.setShown(0);
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    QTest::keyClick(&list, Qt::Key_Down);
    model.setInstruments({detail("600003", 10), detail("600004", 10)});
    EXPECT_EQ(list.shown(), -1);
    list.setShown(1);
    EXPECT_EQ(list.currentIndex().row(), 1);
    letRun(250);
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(List, SettingTheShownRowChoosesNothing)
{
    QSignalSpy spy(&list, &host::InstrumentList::chosen);
    list.setShown(1);
    EXPECT_EQ(list.currentIndex().row(), 1);
    list.setShown(-1);
    EXPECT_TRUE(list.selectionModel()->selectedRows().isEmpty());
    letRun(250);
    EXPECT_EQ(spy.count(), 0);
}

} // namespace
} // namespace window_tests
