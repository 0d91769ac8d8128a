#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <iterator>

#include "desktop/Conversions.h"
#include "desktop/QtShell.h"
#include "tests/desktop/UrlCatcher.h"

namespace quillon {
namespace {

class ShellService : public ::testing::Test {
protected:
    UrlCatcher catcher;
    QTemporaryDir folder;
    QtShell shell;

    std::string labPathOf(const char* name) const {
        return toLabPath(folder.filePath(QString::fromLatin1(name)));
    }
    void expectOpened(const char* name) const {
        ASSERT_EQ(catcher.opened.size(), 1);
        EXPECT_EQ(catcher.opened[0],
                  QUrl::fromLocalFile(folder.filePath(QString::fromLatin1(name))));
    }
    void make(const char* name) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
};

TEST_F(ShellService, AFolderGoesToTheDesktopsHandler) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Images")));
    EXPECT_EQ(shell.execute("explorer.exe", labPathOf("Images") + "\\", "0"), Opening::Asked);
    ASSERT_EQ(catcher.opened.size(), 1);
    EXPECT_EQ(catcher.opened[0].toLocalFile(), folder.filePath(QStringLiteral("Images/")));
}

TEST_F(ShellService, ATextFileGoesToTheDesktopsEditor) {
    make("a b.ftscr");
    EXPECT_EQ(shell.execute("notepad.exe", labPathOf("A B.ftscr"), ""), Opening::Asked);
    expectOpened("a b.ftscr");
}

TEST_F(ShellService, TheHelpIsThePageBesideTheCompiledHelp) {
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("doc/help")));
    make("doc/help/index.html");
    EXPECT_EQ(shell.execute("hh.exe", labPathOf("Quillon.chm"), "0"), Opening::Asked);
    expectOpened("doc/help/index.html");
}

TEST_F(ShellService, APageOfTheHelpIsTheOneOfThatNameBesideIt) {
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("doc/help/fr")));
    make("doc/help/fr/index.html");
    EXPECT_EQ(shell.execute("hh.exe", labPathOf("Quillon.chm") + "::/fr/index.html", "0"),
              Opening::Asked);
    expectOpened("doc/help/fr/index.html");
}

TEST_F(ShellService, AFileInTheProgramsPlaceIsOpened) {
    make("paper.pdf");
    EXPECT_EQ(shell.execute(labPathOf("paper.pdf"), "", labPathOf("")), Opening::Asked);
    expectOpened("paper.pdf");
}

TEST_F(ShellService, ADocumentIsOpenedEvenWhereEveryFileMayBeRun) {
    const QString ran = folder.filePath(QStringLiteral("ran"));
    {
        QFile file(folder.filePath(QStringLiteral("paper.pdf")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\ntouch '" + ran.toUtf8() + "'\n");
        file.setPermissions(file.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    }
    shell.execute(labPathOf("paper.pdf"), "", labPathOf(""));
    expectOpened("paper.pdf");
    EXPECT_FALSE(QFile::exists(ran));
}

TEST_F(ShellService, AnAddressGoesToTheBrowser) {
    const char* const addresses[] = {"http://localhost:8000/products/Sorrel",
                                     "https://www.example.localhost/test",
                                     "https://invalid.localhost/?at=a.test",
                                     "https://latest/#x.example", "https://127.0.0.1./.test"};
    for (const char* address : addresses) {
        EXPECT_EQ(shell.openAddress(address), Opening::Asked) << address;
        ASSERT_FALSE(catcher.opened.isEmpty()) << address;
        EXPECT_EQ(catcher.opened.back(), QUrl(QString::fromLatin1(address)));
    }
    EXPECT_EQ(catcher.opened.size(), std::ssize(addresses));
}

TEST_F(ShellService, AReservedAddressGoesToNobody) {
    for (const char* address :
         {"https://www.brindlewood.example/products/Sorrel", "http://a.invalid", "http://b.c.test/",
          "https://WWW.Brindlewood.EXAMPLE:8443/a?b#c", "https://www.brindlewood.example./",
          "http://user@host.Test:80", "http://example/", "https://a.ex%61mple/x"})
        EXPECT_EQ(shell.openAddress(address), Opening::Reserved) << address;
    EXPECT_TRUE(catcher.opened.isEmpty());
}

TEST_F(ShellService, WhatIsNotThereGoesToNobodyAndIsSaidToBeMissing) {
    EXPECT_EQ(shell.execute(labPathOf("missing.exe"), "x", ""), Opening::Missing);
    EXPECT_EQ(shell.execute("explorer.exe", labPathOf("Images") + "\\", "0"), Opening::Missing);
    EXPECT_EQ(shell.execute("notepad.exe", labPathOf("s.ftscr"), ""), Opening::Missing);
    EXPECT_EQ(shell.execute("hh.exe", labPathOf("Quillon.chm"), "0"), Opening::Missing);
    EXPECT_TRUE(catcher.opened.isEmpty());
}

TEST_F(ShellService, WhatNoProgramOpensIsSaidToHaveNone) {
    EXPECT_EQ(shell.openAddress("quillon-nobody:knows"), Opening::NoProgram);
}

}  // namespace
}  // namespace quillon
