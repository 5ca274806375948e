#include "FreeWatch.h"
#include "KeyMakers.h"

#include <QtTest>

#include <limits>

class tst_CReltedGroupBase : public QObject
{
    Q_OBJECT

private slots:
    void startsWithoutReferences();
    void countsReferencesUpAndDown();
    void freesItselfWhenTheLastReferenceGoes();
    void wrapsBelowZeroAndFreesNothing();
    void copiesTheCountOnAssignment();
    void copiesTheCountOnConstruction();
    void isFreedByTheLastPointer();
};

void tst_CReltedGroupBase::startsWithoutReferences()
{
    const GroupToken token;
    QCOMPARE(token.GetReferences(), 0u);
}

void tst_CReltedGroupBase::countsReferencesUpAndDown()
{
    GroupToken token;
    token.IncrementReferences();
    token.IncrementReferences();
    QCOMPARE(token.GetReferences(), 2u);
    token.DecrementReferences();
    QCOMPARE(token.GetReferences(), 1u);
}

void tst_CReltedGroupBase::freesItselfWhenTheLastReferenceGoes()
{
    auto* const token = new GroupToken;
    FreeWatch::Watch(token);
    token->IncrementReferences();
    QCOMPARE(FreeWatch::freedCount, 0);
    token->DecrementReferences();
    QCOMPARE(FreeWatch::freedCount, 1);
}

void tst_CReltedGroupBase::wrapsBelowZeroAndFreesNothing()
{
    auto* const token = new GroupToken;
    FreeWatch::Watch(token);
    token->DecrementReferences();
    QCOMPARE(FreeWatch::freedCount, 0);
    QCOMPARE(token->GetReferences(), std::numeric_limits<unsigned int>::max());
    delete token;
}

void tst_CReltedGroupBase::copiesTheCountOnAssignment()
{
    GroupToken source;
    source.IncrementReferences();
    source.IncrementReferences();
    GroupToken target;
    CReltedGroupBase& result = target.CReltedGroupBase::operator=(source);
    QCOMPARE(target.GetReferences(), 2u);
    QCOMPARE(&result, static_cast<CReltedGroupBase*>(&target));
}

void tst_CReltedGroupBase::copiesTheCountOnConstruction()
{
    GroupToken source;
    source.IncrementReferences();
    const GroupToken copy(source);
    QCOMPARE(copy.GetReferences(), 1u);
}

void tst_CReltedGroupBase::isFreedByTheLastPointer()
{
    VZ::CPointer<CReltedGroupBase> first(new GroupToken);
    FreeWatch::Watch(first.Get());
    VZ::CPointer<CReltedGroupBase> second(first);
    first = nullptr;
    QCOMPARE(FreeWatch::freedCount, 0);
    second = nullptr;
    QCOMPARE(FreeWatch::freedCount, 1);
}

QTEST_MAIN(tst_CReltedGroupBase)
#include "tst_CReltedGroupBase.moc"
