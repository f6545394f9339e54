#pragma once
// The program's pages.

#include "PageFactory.h"

class ShellPageFactory : public PageFactory {
public:
    std::unique_ptr<Page> create(PageKind kind, PageHost& host, QWidget* parent) override;
};
