#pragma once
// What the pages ask of the main window, for pages measured on their own: one user's logs (the
// default user's unless told otherwise). Nothing else is used by the benchmarks; every other request
// does nothing.

#include "DatabaseCatalogue.h"
#include "PageHost.h"

#include <QDialog>

#include <array>

class BenchPageHost : public PageHost {
public:
    void setUser(const QString& user) { m_names = DatabaseCatalogue::userDatabaseNames(user); }

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

    QString name(UserDatabase which) const { return m_names[static_cast<size_t>(which)]; }

private:
    std::array<QString, kUserDatabaseCount> m_names = DatabaseCatalogue::userDatabaseNames(QString());
};
