#include "child.h"

#include "measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace vandrel::bench {

ChildResult runChild(const QString& program, const QStringList& arguments, const QString& workingFolder) {
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments)
        words.push_back(argument.toUtf8());
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const QByteArray folder = QFile::encodeName(workingFolder);

    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const Stopwatch watch;
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("QT_LOGGING_RULES", "default.warning=false", 1); // what the offscreen platform cannot do
        if (chdir(folder.constData()) != 0) _exit(127);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    close(ends[1]);
    ChildResult result{{}, 0};
    QByteArray output;
    char buffer[4096];
    ssize_t got = 0;
    while ((got = read(ends[0], buffer, sizeof buffer)) > 0) {
        if (output.isEmpty()) result.toFirstByte = watch.seconds();
        output.append(buffer, static_cast<qsizetype>(got));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s failed (%d)\n", words[0].constData(), status);
        std::exit(1);
    }
    result.output = QString::fromUtf8(output);
    return result;
}

QString ownProgram() {
    return QCoreApplication::applicationFilePath();
}

QString neighbour(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

} // namespace vandrel::bench
