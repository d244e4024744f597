// Finding the user's translation: which file for which language, and what stays as it is.
#include "spec/Translations.h"
#include "support/TemporaryFolder.h"
#include "system/Texts.h"

#include <QApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {
/// The hash of the toolkit's translation files.
quint32 Hash(const QByteArray &text) {
    quint32 hash = 0;
    for (const char letter : text) {
        hash = (hash << 4) + static_cast<unsigned char>(letter);
        if (const quint32 high = hash & 0xf0000000)
            hash ^= high >> 24;
        hash &= 0x0fffffff;
    }
    return hash ? hash : 1;
}

/// A translation file with one text in it.
QByteArray TranslationFile(const QByteArray &context, const QByteArray &source,
                           const QString &translation) {
    QByteArray message;
    QDataStream messages(&message, QIODevice::WriteOnly);
    const auto part = [&messages](quint8 tag, const QByteArray &bytes) {
        messages << tag << quint32(bytes.size());
        messages.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
    };
    QByteArray utf16;
    for (const QChar letter : translation)
        utf16.append(char(letter.unicode() >> 8)).append(char(letter.unicode() & 0xff));
    part(3, utf16);
    part(6, source);
    part(7, context);
    messages << quint8(1);

    QByteArray file = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
    QDataStream stream(&file, QIODevice::Append);
    stream << quint8(0x42) << quint32(8) << Hash(source) << quint32(0);
    stream << quint8(0x69) << quint32(message.size());
    stream.writeRawData(message.constData(), static_cast<int>(message.size()));
    return file;
}

class TTranslationFileTest : public testing::Test {
protected:
    ~TTranslationFileTest() override {
        InstallTranslations(QLocale::c(), {});
        SetTextTranslator({});
    }
    void Put(const QString &name, const QString &translation) {
        PutBytes(name, TranslationFile("TfrmMaps", "Commit Changes?", translation));
    }
    void PutBytes(const QString &name, const QByteArray &bytes) {
        QFile file(Folder() + "/" + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QString Folder() const { return QString::fromStdString(folder_.Path().string()); }
    /// What the question is in the language of `locale`.
    QString Question(const QString &locale) {
        InstallTranslations(QLocale(locale), {"/no/such/folder", Folder()});
        return QCoreApplication::translate("TfrmMaps", "Commit Changes?");
    }

private:
    TTemporaryFolder folder_;
};

TEST_F(TTranslationFileTest, TheLanguagesFileIsUsed) {
    Put("ferrolyn_de.qm", "Übernehmen?");
    EXPECT_EQ(Question("de_DE"), "Übernehmen?");
    EXPECT_EQ(Question("de_AT"), "Übernehmen?");
    EXPECT_EQ(Translated("TfrmMaps", "Commit Changes?"), "Übernehmen?");
}

TEST_F(TTranslationFileTest, TheCountrysFileGoesFirst) {
    Put("ferrolyn_de.qm", "Übernehmen?");
    Put("ferrolyn_de_AT.qm", "Passt's so?");
    EXPECT_EQ(Question("de_AT"), "Passt's so?");
    EXPECT_EQ(Question("de_DE"), "Übernehmen?");
}

TEST_F(TTranslationFileTest, OtherLanguagesStayEnglish) {
    Put("ferrolyn_de.qm", "Übernehmen?");
    for (const char *locale : {"fr_FR", "en_US", "en_GB", "C"})
        EXPECT_EQ(Question(locale), "Commit Changes?") << locale;
}

TEST_F(TTranslationFileTest, EnglishNeedsNoFile) {
    Put("ferrolyn.qm", "no language");
    Put("ferrolyn_en.qm", "English");
    EXPECT_EQ(Question("en_US"), "Commit Changes?");
    EXPECT_EQ(Question("de_DE"), "Commit Changes?");
}

TEST_F(TTranslationFileTest, AFileThatIsNoneIsPassedOver) {
    PutBytes("ferrolyn_de.qm", "no translation at all");
    EXPECT_EQ(Question("de_DE"), "Commit Changes?");
    PutBytes("ferrolyn_de.qm", {});
    EXPECT_EQ(Question("de_DE"), "Commit Changes?");
}

TEST_F(TTranslationFileTest, TheToolkitsTextsComeAlong) {
    PutBytes("qtbase_de.qm", TranslationFile("QPlatformTheme", "&Yes", "&Jawohl"));
    const auto yes = [] { return QCoreApplication::translate("QPlatformTheme", "&Yes"); };
    Question("de_DE");
    EXPECT_EQ(yes(), "&Yes") << "but not without the program's own";
    Put("ferrolyn_de.qm", "Übernehmen?");
    Question("de_DE");
    EXPECT_EQ(yes(), "&Jawohl");
}

TEST_F(TTranslationFileTest, AnotherLanguageReplacesTheFirst) {
    Put("ferrolyn_de.qm", "Übernehmen?");
    Question("de_DE");
    EXPECT_EQ(Question("en_US"), "Commit Changes?");
    EXPECT_TRUE(qApp->findChildren<QTranslator *>().isEmpty());
}

TEST(TranslationFolders, AreBesideTheProgramAndInItsShare) {
    const QString program = QCoreApplication::applicationDirPath();
    const QString prefix = QFileInfo(QFileInfo(program).path()).path(); // of PREFIX/lib/ferrolyn
    EXPECT_EQ(TranslationFolders(),
              QStringList({program, prefix + "/share/ferrolyn/translations"}));
}
} // namespace
