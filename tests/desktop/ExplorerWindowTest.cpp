#include "app/ui/ExplorerWindow.h"
#include "support/EngineAndLamps.h"
#include "support/QtTestInput.h"

#include <QAbstractItemModelTester>
#include <QTreeView>

namespace lumeroom {

using test::VirtualLamp;

struct ExplorerWindowTest : test::EngineAndLamps {
    ExplorerWindowTest()
    {
        new QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal,
            &model); // watches every step of every reload
        engine.startHeartbeat();
        window.loadData();
    }
    /// The row at the end of these names; not valid while there is none.
    QModelIndex row(const QStringList& names) const
    {
        QModelIndex at;
        for (const QString& name : names) {
            QModelIndex below;
            for (int i = 0; i < model.rowCount(at); ++i) {
                if (model.index(i, 0, at).data().toString() == name)
                    below = model.index(i, 0, at);
            }
            if (!below.isValid())
                return {};
            at = below;
        }
        return at;
    }
    QString valueOf(const QStringList& names) const
    {
        return model.index(0, 0, row(names)).data().toString();
    }

    ExplorerWindow window{engine.registry(), runLoop};
    QTreeView& view = *window.findChild<QTreeView*>();
    QAbstractItemModel& model = *view.model();
};

TEST_F(ExplorerWindowTest, refreshesItselfAndKeepsTheReadersPlace)
{
    const QStringList brightness{"Lights", "Desk", "brightness"};
    ASSERT_TRUE(test::workUntil([&] {
        return row(brightness).isValid() && row({"Lights", "Strip", "zones"}).isValid()
            && row({"Lights", "Ceiling"}).isValid();
    }));
    EXPECT_TRUE(view.isExpanded(row({"Lights"})));
    for (qsizetype depth = 2; depth <= 3; ++depth)
        view.expand(row(brightness.first(depth)));
    view.setCurrentIndex(model.index(0, 0, row(brightness)));
    ASSERT_FALSE(valueOf(brightness).isEmpty());

    // The value changes, and a lamp of another name comes in before it.
    network.withLamp(0, [](VirtualLamp& lamp, test::Time now) {
        lamp.setColour({1000, 0, 65535, 3500}, now);
    });
    network.withLamp(1, [](VirtualLamp& lamp, test::Time) { lamp.label = "Attic"; });
    ASSERT_TRUE(test::workUntil([&] {
        return valueOf(brightness) == "255" && row({"Lights", "Attic"}).isValid();
    }));
    EXPECT_TRUE(view.isExpanded(row(brightness)));
    EXPECT_EQ(view.currentIndex().data().toString(), "255");

    window.loadData(); // again, from the menu
    EXPECT_TRUE(view.isExpanded(row(brightness)));
}

} // namespace lumeroom
