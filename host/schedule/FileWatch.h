#pragma once

#include <QObject>
#include <string>

class QSocketNotifier;

namespace vantel {

/// Notices when a file is replaced, written, made or taken away, by watching its folder: a watch on the file
/// itself ends with the first atomic replacement. A link counts as itself, whatever it leads to. A folder
/// that cannot be watched is no error: nothing is noticed then.
class FileWatch final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileWatch)

public:
    explicit FileWatch(const std::string& file, QObject* parent = nullptr);
    ~FileWatch() override;

Q_SIGNALS:
    /// Once for any number of changes that come together.
    void changed();

private:
    void read();

    std::string m_name;
    int m_descriptor;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace vantel
