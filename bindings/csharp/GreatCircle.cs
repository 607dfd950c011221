namespace Velmar
{
    /// <summary>The way along a great circle, on a sphere of 6371.11 km.</summary>
    public struct GreatCircle
    {
        /// <summary>Direction at the start, radians clockwise from north, 0 to 2 pi.</summary>
        public readonly float Bearing;

        /// <summary>Angle at the earth's centre, radians.</summary>
        public readonly float Angle;

        /// <summary>Distance, km; small distances are lost in single precision.</summary>
        public readonly float Distance;

        /// <summary>The way from one place to another.</summary>
        public GreatCircle(Position from, Position to)
        {
            lock (VelmarNative.Gate)
                VelmarNative.FJJS2(from.Longitude, from.Latitude, to.Longitude, to.Latitude, out Bearing, out Angle,
                                   out Distance);
        }
    }
}
