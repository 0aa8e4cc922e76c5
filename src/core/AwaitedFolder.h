#pragma once

namespace kaz {

class Application;

// A data folder that was not there when its files were to be read, such as that of a stick
// or of a network drive at logon, is waited for. Until it is back with its files, the
// databases write nothing in their places.
class AwaitedFolder {
public:
    explicit AwaitedFolder(Application& application) : app_(application) {}

    // The files of the data folder have just been read, or would have been.
    void AfterLoad();
    bool IsWaiting() const { return waiting_; }
    // Looks for the folder; true when its events have been read at last.
    bool Look();

private:
    void BeginAnew();
    void Tell(bool isThere);

    Application& app_;
    bool waiting_ = false;
};

}  // namespace kaz
