// Fails when a translation lacks a text of the program, has one that the program does not, or has
// one that would come out wrong.
//   check_translation panewright_de.ts panewright_de.qm <folder of the sources>

#include "desktop/qt/localized.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>
#include <QTranslator>
#include <QXmlStreamReader>

#include <iostream>
#include <map>

namespace {

using panewright::kTranslationContext;

/// By the English text.
using Translations = std::map<QString, QString>;

/// Says what is wrong and counts.
class Faults {
public:
    void add(const QString& where, const QString& what) {
        std::cerr << (where + ": " + what).toStdString() << '\n';
        ++count_;
    }
    int count() const { return count_; }

private:
    int count_ = 0;
};

QString contentOf(const QString& path, Faults& faults) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        faults.add(path, file.errorString());
    }
    return QString::fromUtf8(file.readAll());
}

/// Without those that only pass on a text that another one has translated.
QStringList sourcesIn(const QString& folder) {
    static const QRegularExpression kPassesOn(
        R"re(/(localized|(memory_|qt_)?text_services|memory_services)\.(h|cpp)$)re");
    QStringList sources;
    QDirIterator files(folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        sources += files.next();
    }
    return sources.filter(QRegularExpression("^(?!.*" + kPassesOn.pattern() + ")"));
}

/// One or more string literals in a row, as one text.
QString textOfLiterals(const QString& literals) {
    static const QRegularExpression kLiteral(R"re("((?:[^"\\]|\\.)*)")re");
    QString text;
    for (const auto& match : kLiteral.globalMatch(literals)) {
        text += match.captured(1);
    }
    return text.replace("\\\"", "\"").replace("\\n", "\n");
}

/// The texts that the sources have translated: each a literal, or a constant that is one.
QStringList keysIn(const QStringList& sources, Faults& faults) {
    static const QString kLiterals = R"re(((?:"(?:[^"\\]|\\.)*"\s*)+))re";
    static const QRegularExpression kConstant(R"re(\b(k\w+)\s*=\s*)re" + kLiterals + ";");
    static const QRegularExpression kCall(R"re(\blocalized\(\s*(?:(k\w+)\s*|)re" + kLiterals +
                                          R"re(|([^)]*))\))re");
    std::map<QString, QString> constants;
    QList<QPair<QString, QString>> contents;
    for (const auto& source : sources) {
        const auto content = contents.emplaceBack(source, contentOf(source, faults)).second;
        for (const auto& match : kConstant.globalMatch(content)) {
            constants.insert({match.captured(1), textOfLiterals(match.captured(2))});
        }
    }
    QStringList keys;
    for (const auto& [source, content] : contents) {
        for (const auto& match : kCall.globalMatch(content)) {
            const auto named = constants.find(match.captured(1));
            if (!match.captured(2).isEmpty()) {
                keys += textOfLiterals(match.captured(2));
            } else if (named != constants.end()) {
                keys += named->second;
            } else {
                faults.add(source, "cannot tell what is translated by " + match.captured());
            }
        }
    }
    keys.removeDuplicates();
    return keys;
}

Translations translationsIn(const QString& path, Faults& faults) {
    QXmlStreamReader xml(contentOf(path, faults));
    Translations translations;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            if (const auto context = xml.readElementText(); context != kTranslationContext) {
                faults.add(path, "the program asks no context " + context);
            }
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            if (xml.attributes().hasAttribute("type")) {
                faults.add(path, xml.attributes().value("type").toString() + ": " + source);
            }
            if (!translations.insert({source, xml.readElementText()}).second) {
                faults.add(path, "translated twice: " + source);
            }
        }
    }
    if (xml.hasError()) {
        faults.add(path, xml.errorString());
    }
    return translations;
}

/// What both texts must have equally often.
void compareMarks(const QString& key, const QString& translation, const QString& path,
                  Faults& faults) {
    // Values put in, a letter underlined for the keyboard, and more to come in a window.
    for (const auto* mark : {"%@", "%1", "&", "…"}) {
        if (key.count(QString::fromUtf8(mark)) != translation.count(QString::fromUtf8(mark))) {
            faults.add(path, "not as many " + QString::fromUtf8(mark) + " as in: " + key);
        }
    }
    if (translation.trimmed().isEmpty() != key.trimmed().isEmpty()) {
        faults.add(path, "empty: " + key);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::cerr << "usage: check_translation TS QM FOLDER\n";
        return 2;
    }
    const QStringList arguments(argv + 1, argv + argc);
    const auto& path = arguments[0];
    Faults faults;
    auto translations = translationsIn(path, faults);
    QTranslator compiled;
    if (!compiled.load(arguments[1])) {
        faults.add(arguments[1], "cannot be loaded");
    }
    for (const auto& key : keysIn(sourcesIn(arguments[2]), faults)) {
        const auto found = translations.find(key);
        if (found == translations.end()) {
            faults.add(path, "not translated: " + key);
            continue;
        }
        compareMarks(key, found->second, path, faults);
        if (compiled.translate(kTranslationContext, key.toUtf8().constData()) != found->second) {
            faults.add(arguments[1], "does not answer: " + key);
        }
        translations.erase(found);
    }
    for (const auto& [key, translation] : translations) {
        faults.add(path, "not in the program: " + key);
    }
    return faults.count() == 0 ? 0 : 1;
}
