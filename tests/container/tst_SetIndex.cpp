#include "container/SetIndex.h"

#include "tests/instance/InstanceStand.h"

using namespace Qt::StringLiterals;
using enum eParameterProperty;

/// The sets by what they follow, in step with what comes, changes, moves and goes.
class tst_SetIndex : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void receiversByCoordinate();
    void updatedSet();
    void updatedSetIsLookedAtWhenSomebodyAsks();
    void removedAfterAnUpdate();
    void exchangedCoordinates();
    void movedSet();
    void setsThatShareAKeyGo();
    void mappingSets();

private:
    static QStringList texts(const QList<DependencyReceiver> &receivers)
    {
        QStringList list;
        for (const DependencyReceiver &receiver : receivers)
            list.append(receiver.set->coordinate().toText());
        return list;
    }
    static QString moveable(quint16 line)
    {
        return ParameterCoordinate(ParameterCoordinate::MoveableGroup, line).toText();
    }
    static constexpr DependencyKey Limits {LimitDependency, 5};
    static DefinitionBuilder following()
    {
        return DefinitionBuilder().property(LimitFunctionIndex, 5U);
    }
};

void tst_SetIndex::receiversByCoordinate()
{
    InstanceStand stand;
    SetIndex index;
    QVERIFY(index.receivers(Limits).isEmpty());
    for (const QString &coordinate : {u"C03"_s, u"A12"_s, u"B07"_s})
        index.add(stand.add(following(), coordinate));
    index.add(stand.add(DefinitionBuilder(), u"B01"_s));
    QCOMPARE(texts(index.receivers(Limits)), (QStringList {u"A12"_s, u"B07"_s, u"C03"_s}));
    QCOMPARE(texts(index.receivers({LimitDependency, 6})), QStringList());
    QCOMPARE(texts(index.receivers({HidingDependency, 5})), QStringList());
    index.remove(stand.set(u"B07"_s));
    QCOMPARE(texts(index.receivers(Limits)), (QStringList {u"A12"_s, u"C03"_s}));
    index.remove(stand.set(u"B07"_s));
    index.clear();
    QCOMPARE(texts(index.receivers(Limits)), QStringList());
}

void tst_SetIndex::updatedSet()
{
    InstanceStand stand;
    SetIndex index;
    auto *set = stand.add(following(), u"A12"_s);
    index.add(set);
    set->setProperty(0, LimitFunctionIndex, ParameterProperty(6U));
    index.update(set);
    QCOMPARE(texts(index.receivers(Limits)), QStringList());
    QCOMPARE(texts(index.receivers({LimitDependency, 6})), QStringList {u"A12"_s});
    set->setProperty(0, LimitFunctionIndex, ParameterProperty(0U));
    index.update(set);
    QCOMPARE(texts(index.receivers({LimitDependency, 6})), QStringList());
}

void tst_SetIndex::updatedSetIsLookedAtWhenSomebodyAsks()
{
    InstanceStand stand;
    SetIndex index;
    auto *set = stand.add(following(), u"A12"_s);
    auto *other = stand.add(following(), u"B07"_s);
    index.add(set);
    QCOMPARE(texts(index.receivers(Limits)), QStringList {u"A12"_s});
    // What it says when somebody asks counts, not what it said when it told of the change.
    set->setProperty(0, LimitFunctionIndex, ParameterProperty(6U));
    index.update(set);
    set->setProperty(0, LimitFunctionIndex, ParameterProperty(7U));
    index.update(set);
    index.add(other);
    // Another that goes meanwhile changes nothing.
    index.remove(other);
    QCOMPARE(texts(index.receivers({LimitDependency, 6})), QStringList());
    QCOMPARE(texts(index.receivers({LimitDependency, 7})), QStringList {u"A12"_s});
    QCOMPARE(texts(index.receivers(Limits)), QStringList());
}

void tst_SetIndex::removedAfterAnUpdate()
{
    InstanceStand stand;
    SetIndex index;
    auto *set = stand.add(following(), u"A12"_s);
    index.add(set);
    QCOMPARE(index.receivers(Limits).size(), 1);
    index.update(set);
    index.remove(set);
    QCOMPARE(index.receivers(Limits).size(), 0);
    auto *never = stand.add(following(), u"B07"_s);
    index.add(never);
    index.update(never);
    index.remove(never);
    QCOMPARE(index.receivers(Limits).size(), 0);
}

// Each may be looked at first.
void tst_SetIndex::exchangedCoordinates()
{
    InstanceStand stand;
    SetIndex index;
    auto *first = stand.add(following(), moveable(0));
    auto *second = stand.add(following(), moveable(1));
    index.add(first);
    index.add(second);
    QCOMPARE(texts(index.receivers(Limits)), (QStringList {moveable(0), moveable(1)}));
    first->setCoordinate(ParameterCoordinate(moveable(2)));
    second->setCoordinate(ParameterCoordinate(moveable(0)));
    first->setCoordinate(ParameterCoordinate(moveable(1)));
    index.update(first);
    index.update(second);
    QCOMPARE(texts(index.receivers(Limits)), (QStringList {moveable(0), moveable(1)}));
    QCOMPARE(index.receivers(Limits).constFirst().set, second);
    QCOMPARE(index.receivers(Limits).constLast().set, first);
}

void tst_SetIndex::movedSet()
{
    InstanceStand stand;
    SetIndex index;
    auto *moved = stand.add(following(), moveable(0));
    index.add(moved);
    index.add(stand.add(following(), moveable(1)));
    QCOMPARE(index.receivers(Limits).size(), 2);
    moved->setCoordinate(ParameterCoordinate(moveable(2)));
    index.update(moved);
    QCOMPARE(texts(index.receivers(Limits)), (QStringList {moveable(1), moveable(2)}));
    index.remove(moved);
    QCOMPARE(texts(index.receivers(Limits)), QStringList {moveable(1)});
}

void tst_SetIndex::setsThatShareAKeyGo()
{
    InstanceStand stand;
    SetIndex index;
    QList<CoordinateInstanceSet *> sets;
    for (quint16 line = 0; line < 300; ++line) {
        sets.append(stand.add(following().kind(11), ParameterCoordinate(quint8(1), line).toText()));
        index.add(sets.constLast());
    }
    QCOMPARE(index.receivers(Limits).size(), 300);
    for (qsizetype i = 0; i < sets.size(); ++i) {
        index.remove(sets.at(i));
        QCOMPARE(index.receivers(Limits).size(), 299 - i);
        QCOMPARE(index.mappingSets().size(), 299 - i);
    }
}

void tst_SetIndex::mappingSets()
{
    InstanceStand stand;
    SetIndex index;
    auto *mapping =
        stand.add(DefinitionBuilder().element(0, u"a"_s).element(5, u"b"_s).kind(11), u"B07"_s);
    auto *first = stand.add(DefinitionBuilder().kind(11), u"A12"_s);
    index.add(mapping);
    index.add(first);
    index.add(stand.add(DefinitionBuilder().kind(10), u"C01"_s));
    QCOMPARE(index.mappingSets(), (QList<CoordinateInstanceSet *> {first, mapping}));
    index.remove(first);
    QCOMPARE(index.mappingSets(), QList<CoordinateInstanceSet *> {mapping});
}

QTEST_GUILESS_MAIN(tst_SetIndex)

#include "tst_SetIndex.moc"
