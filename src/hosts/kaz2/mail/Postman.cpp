#include "hosts/kaz2/mail/Postman.h"

#include "hosts/kaz2/mail/MailNews.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace kaz {

using Clock = std::chrono::steady_clock;

namespace {

// For a transfer to notice that it is to stop: while the server says nothing, it looks up once a second.
constexpr std::chrono::milliseconds kToStop{1200};

const MailFailure kEnded{MailTrouble::ProgramEnd, "KAZ ended before the mail had gone."};

}  // namespace

// What the two threads share. The thread owns a part of it, so that it may outlive the postman.
class Postman::Round {
public:
    Round(MakeSender makeSender, std::shared_ptr<MailNews> news, Rules rules)
        : makeSender_(std::move(makeSender)),
          news_(std::move(news)),
          rules_(std::move(rules)) {}

    void Add(Mail mail) {
        {
            const std::lock_guard lock(mutex_);
            if (!closing_ && waiting_.size() < rules_.most) {
                waiting_.push_back({std::move(mail)});
                changed_.notify_all();
                return;
            }
        }
        news_->NotSent(mail, {MailTrouble::TooMany, "Too many mails are waiting."});
    }

    void Work() {
        std::unique_lock lock(mutex_);
        while (TakeNext(lock)) {
            const Mail mail = underWay_->mail;
            lock.unlock();
            const std::optional<MailFailure> failure = Attempt(mail);
            lock.lock();
            // Whoever could not wait has told about this mail.
            if (!underWay_) break;
            Settle(failure);
        }
        ended_ = true;
        changed_.notify_all();
    }

    bool Close(std::chrono::milliseconds most) {
        std::unique_lock lock(mutex_);
        // Whoever asks again gets the answer at once.
        if (std::exchange(closing_, true) && !underWay_) return ended_;
        changed_.notify_all();
        const auto isOver = [this] { return ended_; };
        if (changed_.wait_for(lock, most, isOver)) return true;
        for (const Letter& letter : std::exchange(waiting_, {}))
            news_->NotSent(letter.mail, kEnded);
        stop_.request_stop();
        if (changed_.wait_for(lock, kToStop, isOver)) return true;
        if (underWay_)
            news_->NotSent(std::exchange(underWay_, {})->mail,
                           {MailTrouble::ProgramEnd,
                            "KAZ ended while the mail was still under way; perhaps it has gone."});
        return false;
    }

private:
    struct Letter {
        Mail mail;
        std::size_t attempts = 0;
        Clock::time_point next{};
    };

    // Waits for a letter whose time has come; false when there will be none.
    bool TakeNext(std::unique_lock<std::mutex>& lock) {
        for (;;) {
            const auto next = std::ranges::min_element(waiting_, {}, &Letter::next);
            if (next == waiting_.end()) {
                if (closing_) return false;
                changed_.wait(lock);
            } else if (closing_ || next->next <= Clock::now()) {
                underWay_ = std::move(*next);
                waiting_.erase(next);
                return true;
            } else {
                // A copy: while this thread waits, the letters may go.
                const Clock::time_point due = next->next;
                changed_.wait_until(lock, due);
            }
        }
    }

    std::optional<MailFailure> Attempt(const Mail& mail) const {
        try {
            makeSender_()->Send(mail, stop_.get_token());
            return std::nullopt;
        } catch (const MailFailure& failure) {
            return failure;
        } catch (...) {
            return MailFailure{MailTrouble::MailProgram,
                               "The mail could not be made; the memory may be full."};
        }
    }

    void Settle(const std::optional<MailFailure>& failure) {
        Letter letter = *std::exchange(underWay_, {});
        if (!failure) {
            news_->Sent(letter.mail);
        } else if (failure->mayPass && !closing_ && letter.attempts < rules_.pauses.size()) {
            if (letter.attempts == 0) news_->Delayed(letter.mail, *failure);
            letter.next = Clock::now() + rules_.pauses[letter.attempts++];
            waiting_.push_back(std::move(letter));
        } else {
            news_->NotSent(letter.mail, *failure);
        }
    }

    const MakeSender makeSender_;
    const std::shared_ptr<MailNews> news_;
    const Rules rules_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Letter> waiting_;
    std::optional<Letter> underWay_;
    std::stop_source stop_;
    bool closing_ = false;
    bool ended_ = false;
};

Postman::Postman(MakeSender makeSender, std::shared_ptr<MailNews> news, Rules rules)
    : round_(std::make_shared<Round>(std::move(makeSender), std::move(news), std::move(rules))) {
    std::thread([round = round_] { round->Work(); }).detach();
}

Postman::~Postman() { Finish(std::chrono::milliseconds(0)); }

void Postman::Post(Mail mail) { round_->Add(std::move(mail)); }

bool Postman::Finish(std::chrono::milliseconds most) { return round_->Close(most); }

}  // namespace kaz
