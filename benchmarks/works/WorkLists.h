#pragma once

#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "support/TransportFixture.h"

#include <QApplication>
#include <QLabel>
#include <QTableView>

namespace lyrabox::work {

/// The track list with its table shown, on a transport that plays nothing.
struct TrackTable {
    TrackTable()
    {
        queue.setAudio(transport.controller.get());
        queue.setErrorField(&errorField);
        tracks.setQueue(&queue);
        tracks.setSettings(&transport.settings);
        tracks.setTrackTableView(&table);
        tracks.setup();
        table.resize(900, 600);
        table.show();
        QApplication::processEvents();
    }

    /// What is to be seen of the list is drawn.
    void paint()
    {
        table.doItemsLayout();
        table.viewport()->repaint();
    }

    test::TransportFixture transport;
    QLabel errorField;
    LB_QueueController queue;
    QTableView table;
    LB_TrackController tracks;
};

} // namespace lyrabox::work
