// Pictures of the information panel, kept in the folder DEPTH_PICTURES if it is given; the pages are chosen
// by clicks on their tabs.

#include "InformationFixture.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CComboBox.h"

#include <set>

using namespace Kel;

namespace {

Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

class InformationPictures : public test::InformationTest, public ::testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        InformationTest::SetUp();
        resource().setTheme(QLatin1String(GetParam()));
    }
    void TearDown() override
    {
        resource().setTheme(QStringLiteral("dark"));
        InformationTest::TearDown();
    }

    void keep(test::InformationProbe& panel, const char* name)
    {
        QCoreApplication::processEvents();
        const QImage image = panel.grab().toImage();
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        }
        EXPECT_GT(colors.size(), 8u);
        const QString folder = qEnvironmentVariable("DEPTH_PICTURES");
        if (folder.isEmpty())
            return;
        QDir().mkpath(folder);
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2_%3.png").arg(folder, name, GetParam())));
    }
};

} // namespace

TEST_P(InformationPictures, OfItsPagesHoldInk)
{
    write("SH", "600000", "股东变动.csv",
          "日期,股东,\"变动,股\",比例\n2023-01-31,某基金,\"1,200\",0.12%\n2023-02-01,某公司,-300,0.03%\n");
    write("SH", "600000", "调研.csv", "日期,机构\n2023-01-05,某证券\n");
    write("SH", "600000", "财务.csv",
          "日期,营业收入,净利润" + QByteArray(1000, ',') +
              "\n2022-12-31,1886亿,511亿\n2022-09-30,1436亿,406亿\n");
    test::InformationProbe panel;
    panel.resize(640, 220);
    panel.show();
    panel.setStock("SH600000");
    panel.updateNotice({notice("关于召开2022年年度股东大会的通知", "http://example/1"),
                        notice("2022年度业绩快报公告", "http://example/2"),
                        notice("关于董事辞职的公告", "http://example/3")});
    panel.clickTab("公告");
    keep(panel, "information_announcements");
    panel.clearTables();
    panel.clickTab("本地资讯");
    keep(panel, "information_local_empty");
    panel.requestInfo();
    ASSERT_TRUE(waitFor([&panel] { return panel.m_tables[3]->model()->rowCount() > 0; }));
    panel.clickTab("本地资讯");
    keep(panel, "information_local");
    auto* const chooser = panel.findChild<Zeb::CComboBox*>();
    chooser->setCurrentIndex(chooser->findText("浦发银行_财务"));
    keep(panel, "information_local_cut");
    panel.addOneRow(panel.table(CInformationWidget::eTableNews), notice("银行板块午后走强"));
    panel.clickTab("研报");
    keep(panel, "information_news");
}

INSTANTIATE_TEST_SUITE_P(Themes, InformationPictures, ::testing::Values("dark", "light"));
