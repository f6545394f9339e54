#pragma once
// Restore: the user's six logs replaced by the copies in the backup file "\My Documents\<user>.kov".
//
// The file is mounted read-only and never changed. Each log is deleted, made anew and filled from its
// copy, the A pairs before the B pairs, all six in one transaction of the object store, every record
// checked as it is copied (readable, and within RecordLimits): a copy missing, a record refused, a
// failure or a kill at any moment leaves the logs either exactly as they were or wholly restored.

#include <QString>

class UtilityReport;

class Restore {
public:
    // The yes/no question asked before a restore, for the user's display name.
    static QString question(const QString& user);
    // Restores the logs of user (the empty name: Default), from the mount of the file on; the
    // question has been answered. True when the six logs were restored.
    static bool run(const QString& user, UtilityReport& report);
};
