#pragma once
// What the pages ask of the main window, for pages measured on their own: the default user's logs.
// Nothing else is used by the benchmarks; every other request does nothing.

#include "DatabaseCatalogue.h"
#include "PageHost.h"

#include <QDialog>

class DefaultUserHost : public PageHost {
public:
    QString GetUserName() const override { return QStringLiteral("Default"); }
    QString upperBodyADatabaseName() const override { return name(UserDatabase::UpperA); }
    QString upperBodyBDatabaseName() const override { return name(UserDatabase::UpperB); }
    QString lowerBodyADatabaseName() const override { return name(UserDatabase::LowerA); }
    QString lowerBodyBDatabaseName() const override { return name(UserDatabase::LowerB); }
    QString aerobicDatabaseName() const override { return name(UserDatabase::Aerobic); }
    QString foodDatabaseName() const override { return name(UserDatabase::Food); }
    void SelectPage(int) override {}
    void SetDateOnAllPages(const QDate&) override {}
    void RefreshLogPages() override {}
    void ReloadForUser() override {}
    void RepaintToday() override {}
    void setDateOnPage(int, const QDate&) override {}
    void showGoals() override {}
    void ShowSetGrid(const QDate&, int) override {}
    void forwardDateToStrengthPage(BodyRegion, const QDate&) override {}
    void forwardTimesToStrengthPage(BodyRegion, const WorkoutTimes&) override {}
    void returnFromSetGrid(int) override {}
    ConfirmResult confirm(const ConfirmRequest&) override { return {}; }
    int runDialog(QDialog&) override { return QDialog::Rejected; }
    QString editItemList(const QString&) override { return {}; }

    // The default user's database of which.
    static QString name(UserDatabase which) { return DatabaseCatalogue::userDatabaseName(which, QString()); }
};
