#include "InformationFixture.h"
#include "information/CMultiThreadDataModel.h"

using namespace Kel;

namespace {

class DataModel : public test::InformationTest
{
};

} // namespace

TEST_F(DataModel, MakesARequestReadyUnderMarketAndCode)
{
    const auto model = boost::make_shared<CMultiThreadDataModel>(nullptr);
    model->setStock("600000");
    const quoter::TSMetaInfo request = model->request("SH600000");
    EXPECT_EQ(request.market, "SH");
    EXPECT_EQ(request.instrument, "600000");
    EXPECT_EQ(request.metaId, 9000);
    EXPECT_EQ(request.period, 86400000);
    EXPECT_EQ(model->request("600000").metaId, 0);
    model->setStock("NOTHING");
    EXPECT_EQ(model->request("NOTHING").metaId, 0);
}

TEST_F(DataModel, DropsItsRequestsOnlyWithASubscription)
{
    const auto model = boost::make_shared<CMultiThreadDataModel>(nullptr);
    EXPECT_EQ(model->subscription(), -1);
    model->setStock("SH600000");
    model->clear();
    EXPECT_EQ(model->request("SH600000").metaId, 9000);
    model->setSubscription(7);
    model->clear();
    EXPECT_EQ(model->request("SH600000").metaId, 0);
}

TEST_F(DataModel, KnowsItsPanel)
{
    test::InformationProbe panel;
    EXPECT_EQ(panel.m_dataModel->widget(), &panel);
    panel.setStock("SH600000");
    EXPECT_EQ(panel.m_dataModel->request("SH600000").metaId, 9000);
}
