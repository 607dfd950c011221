namespace Velmar
{
    /// <summary>A centre of a high or a low.</summary>
    public sealed class Centre
    {
        private Centre(BlockCursor cursor)
        {
            IsHigh = cursor.Next() > 0;
            Position = cursor.NextPosition();
            Value = cursor.Next();
            Strength = cursor.Next();
            Steps = cursor.NextInt();
            StrengthClass = cursor.NextInt();
        }

        /// <summary>Whether it is a high.</summary>
        public bool IsHigh { get; private set; }

        /// <summary>Where it lies.</summary>
        public Position Position { get; private set; }

        /// <summary>The value of the grid there.</summary>
        public float Value { get; private set; }

        /// <summary>Strength divided by the range of the data; not a number beside an equal neighbour.</summary>
        public float Strength { get; private set; }

        /// <summary>Grid steps that the strength was taken over.</summary>
        public int Steps { get; private set; }

        /// <summary>Class of strength.</summary>
        public int StrengthClass { get; private set; }

        /// <summary>Finds the centres of a grid, ordered by column, then by row.</summary>
        /// <exception cref="VelmarException">the grid has no values, or for lack of memory</exception>
        public static Centre[] Find(Grid grid)
        {
            Lattice at = grid.Lattice;
            using (VelmarBlock block = NativeCall.Make("findCenters", () => VelmarNative.findCenters(grid.Values,
                       grid.Missing, grid.Columns, grid.Rows, 0, at.StartLongitude, at.StartLatitude, at.LongitudeStep,
                       at.LatitudeStep)))
            {
                BlockCursor cursor = block.Cursor();
                var centres = new Centre[cursor.NextCount()];
                for (int i = 0; i < centres.Length; ++i) centres[i] = new Centre(cursor);
                return centres;
            }
        }
    }
}
