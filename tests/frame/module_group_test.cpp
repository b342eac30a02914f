// The face of a module: a host can derive from it and override what concerns it.

#include "frame/CBaseModuleGroupWidget.h"

#include <gtest/gtest.h>

/// The host completes the enumeration with its own tabs.
enum Kel::EModuleTroupTabID : int
{
    eTabQueue = 3,
};

namespace {

class Module : public Kel::CBaseModuleGroupWidget
{
public:
    using CBaseModuleGroupWidget::CBaseModuleGroupWidget;
    void initModule() override {}
};

class Overriding : public Module
{
public:
    void setStock(QString code) override { stock = code; }
    void clear(bool) override { ++calls; }
    void connectTick(long long) override { ++calls; }
    void initAllQuoterData() override { ++calls; }
    void request(bool) override { ++calls; }
    void setEntrustByLatestClose(double) override { ++calls; }
    void setLevelStatus(int) override { ++calls; }
    void setParamByLastClose(double) override { ++calls; }
    void showTab(Kel::EModuleTroupTabID tab) override { calls += tab == Kel::eTabQueue; }
    void unrequest() override { ++calls; }
    void updateView() override { ++calls; }

    QString stock;
    int calls = 0;
};

void callAll(Kel::CBaseModuleGroupWidget& module)
{
    module.setStock(QStringLiteral("SH600999"));
    module.clear(true);
    module.connectTick(1);
    module.initAllQuoterData();
    module.request(true);
    module.setEntrustByLatestClose(1.5);
    module.setLevelStatus(2);
    module.setParamByLastClose(1.5);
    module.showTab(Kel::eTabQueue);
    module.unrequest();
    module.updateView();
}

TEST(ModuleGroup, DoesNothingByItself)
{
    Module module;
    EXPECT_EQ(module.objectName().toStdString(), "CBaseModuleGroupWidget");
    const QRect before = module.geometry();
    callAll(module);
    EXPECT_EQ(module.geometry(), before);
    EXPECT_TRUE(module.children().isEmpty());
}

TEST(ModuleGroup, ADerivedModuleIsReachedThroughItsFace)
{
    Overriding module;
    callAll(module);
    EXPECT_EQ(module.stock.toStdString(), "SH600999");
    EXPECT_EQ(module.calls, 10);
}

} // namespace
