#pragma once

#include <stdexcept>

#include "bench/contest.h"
#include "bench/world.h"

/// How writing is timed on both sides.
namespace zef::bench {

/// In the client's transaction only the saves are timed; alone, each save with its own transaction.
enum class Transaction { Clients, Own };

/// What both sides write with, on one database, and a third connection that looks on, so that neither side has its
/// pages read for it.
template <class Side>
struct Writers {
  explicit Writers(World& world)
      : session(OpenSession(Side::Writing(world))),
        db(Side::Writing(world)),
        reader(db),
        writer(db),
        onlooker(Side::Writing(world)) {}

  Ref<CSession> session;
  typename Side::Database db;
  typename Side::Reader reader;
  typename Side::Writer writer;
  typename Side::Database onlooker;
};

inline void Require(bool success) {
  if (!success) throw std::runtime_error("a record could not be saved");
}

/// A round does all its operations twice: the first pass, not timed, takes in what the other side has written
/// meanwhile. Emptying the log before keeps that work out of the times.
template <class Side, class Begin, class Work, class Commit>
void TimeWriting(const Writers<Side>& writers, Transaction kind, int operations, Stopwatch& watch, Begin begin,
                 Work work, Commit commit) {
  const bool clients = kind == Transaction::Clients;
  writers.onlooker.Checkpoint();
  if (clients) begin();
  for (int i = 0; i < operations; ++i) work(i, 0);
  watch.Start();
  for (int i = 0; i < operations; ++i) work(i, 1);
  watch.Stop();
  if (clients) commit();
}

template <class Side, class Work>
void TimeOurs(const Writers<Side>& writers, Transaction kind, int operations, Stopwatch& watch, Work work) {
  CSession& session = *writers.session;
  TimeWriting(
      writers, kind, operations, watch, [&] { Require(session.BeginTransaction()); }, work,
      [&] { Require(session.CommitTransaction()); });
}

template <class Side, class Work>
void TimeByHand(const Writers<Side>& writers, Transaction kind, int operations, Stopwatch& watch, Work work) {
  TimeWriting(
      writers, kind, operations, watch, [&] { writers.writer.Begin(); }, work, [&] { writers.writer.Commit(); });
}

}  // namespace zef::bench
