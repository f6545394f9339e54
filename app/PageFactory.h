#pragma once
// Makes the main window's pages. The program's pages come from ShellPageFactory; tests supply their
// own factory to watch what the main window asks of its pages.

#include "Page.h"

#include <memory>

class PageHost;
class QWidget;

// The pages, in the order of the main window's members.
enum class PageKind { UpperBody, Today, LowerBody, Aerobic, Food, Reports, Calendar, SetGrid };

class PageFactory {
public:
    virtual ~PageFactory() = default;
    virtual std::unique_ptr<Page> create(PageKind kind, PageHost& host, QWidget* parent) = 0;
};
